#include "store/fm_database.h"

#include <algorithm>
#include <sqlite3.h>
#include <utility>

#include "platform/fatal_error.h"
#include "store/fm_statement.h"

namespace brevant {
namespace {

// Marks the connection as executing for as long as a statement is being run.
class Executing {
 public:
  explicit Executing(bool& flag) : flag_(flag) { flag_ = true; }
  ~Executing() { flag_ = false; }
  Executing(const Executing&) = delete;
  Executing& operator=(const Executing&) = delete;

 private:
  bool& flag_;
};

int randomBusySleep(RandomSource& random) {
  std::array<std::uint8_t, 4> bytes{};
  random.fill(bytes);
  std::uint32_t number = 0;
  for (const std::uint8_t byte : bytes) number = number << 8U | byte;
  return 50 + static_cast<int>(number % 50);
}

}  // namespace

FMDatabase::FMDatabase(std::optional<std::string> path, const Clock& clock, RandomSource& random,
                       Log& log)
    : path_(std::move(path)), clock_(clock), random_(random), log_(log) {
  if (sqlite3_threadsafe() == 0) fatalError("SQLite is not built thread-safe");
}

FMDatabase::~FMDatabase() {
  close();
}

bool FMDatabase::open() {
  if (handle_) return true;
  const int result = sqlite3_open(path_ ? path_->c_str() : ":memory:", &handle_);
  if (result != SQLITE_OK) {
    report("error opening!: " + std::to_string(result));
    sqlite3_close(std::exchange(handle_, nullptr));  // SQLite makes a handle even then
    return false;
  }
  if (maxBusyRetryTimeInterval > 0) {
    const auto handler = [](void* self, int count) {
      return static_cast<FMDatabase*>(self)->retryAfterBusy(count) ? 1 : 0;
    };
    sqlite3_busy_handler(handle_, handler, this);
  }
  return true;
}

bool FMDatabase::close() {
  cachedStatements_.clear();
  while (!openResultSets_.empty()) openResultSets_.back()->close();
  if (!handle_) return true;

  int result = sqlite3_close(handle_);
  if (result == SQLITE_BUSY || result == SQLITE_LOCKED) {
    finalizeLeakedStatements();
    result = sqlite3_close(handle_);
  }
  if (result != SQLITE_OK) report("error closing!: " + std::to_string(result));
  handle_ = nullptr;
  return true;
}

void FMDatabase::finalizeLeakedStatements() {
  while (sqlite3_stmt* const leaked = sqlite3_next_stmt(handle_, nullptr)) {
    report("Closing leaked statement");
    sqlite3_finalize(leaked);
  }
}

std::unique_ptr<FMResultSet> FMDatabase::executeQuery(std::string_view sql,
                                                      std::span<const Argument> arguments) {
  if (!isReady()) return nullptr;
  const Executing executing(isExecuting_);
  std::shared_ptr<FMStatement> statement = prepare(sql);
  if (!statement) return nullptr;
  if (!statement->bind(arguments)) {
    fail({"Error: the bind count is not correct for the # of variables (executeQuery)"});
    return nullptr;
  }
  return std::make_unique<FMResultSet>(*this, std::move(statement), log_);
}

bool FMDatabase::executeUpdate(std::string_view sql, std::span<const Argument> arguments) {
  if (!isReady()) return false;
  const Executing executing(isExecuting_);
  const std::shared_ptr<FMStatement> statement = prepare(sql);
  if (!statement) return false;
  if (!statement->bind(arguments)) {
    fail({"Error: the bind count (" + std::to_string(arguments.size()) +
          ") is not correct for the # of variables in the query (" +
          std::to_string(statement->parameterCount()) + ") (" + std::string(sql) +
          ") (executeUpdate)"});
    return false;
  }
  const int result = sqlite3_step(statement->handle());
  if (result != SQLITE_DONE) reportUpdate(result, sql);
  if (const int ended = statement->reset(); ended != SQLITE_OK) {
    fail({"Unknown error finalizing or resetting statement " + errorText(ended)});
  }
  return result == SQLITE_DONE;
}

bool FMDatabase::isReady() {
  if (!handle_) fail({"The FMDatabase " + description() + " is not open."});
  if (isExecuting_) fail({"The FMDatabase " + description() + " is currently in use."});
  return handle_ && !isExecuting_;
}

std::shared_ptr<FMStatement> FMDatabase::prepare(std::string_view sql) {
  std::shared_ptr<FMStatement> statement = cachedStatement(sql);
  if (!statement) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle_, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr) !=
        SQLITE_OK) {
      fail({"DB Error: " + std::to_string(lastErrorCode()) + " \"" + lastErrorMessage() + "\"",
            "DB Query: " + std::string(sql), "DB Path: " + description()});
      return nullptr;
    }
    statement = std::make_shared<FMStatement>(prepared, sql);
    if (shouldCacheStatements) cachedStatements_.push_back(statement);
  }
  ++statement->useCount;
  return statement;
}

std::shared_ptr<FMStatement> FMDatabase::cachedStatement(std::string_view sql) const {
  const auto found = std::ranges::find_if(cachedStatements_, [&](const auto& statement) {
    return !statement->inUse && statement->query == sql;
  });
  return found == cachedStatements_.end() ? nullptr : *found;
}

void FMDatabase::reportUpdate(int result, std::string_view sql) {
  const std::string error = errorText(result);
  switch (result) {
    case SQLITE_ROW:
      return fail(
          {"A executeUpdate is being called with a query string '" + std::string(sql) + "'"});
    case SQLITE_INTERRUPT:
      return fail(
          {"Error calling sqlite3_step. Query was interrupted " + error + " SQLITE_INTERRUPT"});
    case SQLITE_ERROR:
      return fail({"Error calling sqlite3_step " + error + " SQLITE_ERROR"});
    case SQLITE_MISUSE:
      return fail({"Error calling sqlite3_step " + error + " SQLITE_MISUSE"});
    default:
      return fail({"Unknown error calling sqlite3_step " + error + " eu"});
  }
}

bool FMDatabase::beginTransaction() {
  return executeUpdate("begin exclusive transaction");
}

bool FMDatabase::beginDeferredTransaction() {
  return executeUpdate("begin deferred transaction");
}

bool FMDatabase::commit() {
  return executeUpdate("commit transaction");
}

bool FMDatabase::rollback() {
  return executeUpdate("rollback transaction");
}

bool FMDatabase::isInTransaction() const {
  return handle_ && sqlite3_get_autocommit(handle_) == 0;
}

int FMDatabase::lastErrorCode() const {
  return sqlite3_errcode(handle_);
}

std::string FMDatabase::lastErrorMessage() const {
  return sqlite3_errmsg(handle_);
}

// Called by SQLite when the file is locked, with the number of earlier calls in this wait.
bool FMDatabase::retryAfterBusy(int count) {
  if (count == 0) {
    busyStart_ = clock_.monotonicSeconds();
    return true;
  }
  if (clock_.monotonicSeconds() - busyStart_ >= maxBusyRetryTimeInterval) return false;
  // At random, so that two processes waiting for each other do not stay in step.
  const int requested = randomBusySleep(random_);
  const int actual = sqlite3_sleep(requested);
  if (actual != requested) {
    report("WARNING: Requested sleep of " + std::to_string(requested) +
           " milliseconds, but SQLite returned " + std::to_string(actual) +
           ". Maybe SQLite wasn't built with HAVE_USLEEP=1?");
  }
  return true;
}

void FMDatabase::report(std::string_view line) {
  if (logsErrors) log_.write(line);
}

// A statement failed for the reason in the first line.
void FMDatabase::fail(std::initializer_list<std::string> lines) {
  for (const std::string& line : lines) report(line);
  if (crashOnErrors) fatalError(*lines.begin());
}

std::string FMDatabase::errorText(int code) const {
  return "(" + std::to_string(code) + ": " + lastErrorMessage() + ")";
}

std::string FMDatabase::description() const {
  return path_.value_or(":memory:");
}

}  // namespace brevant
