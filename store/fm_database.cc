// SPDX-License-Identifier: MIT
#include "store/fm_database.h"

#include <algorithm>
#include <sqlite3.h>
#include <utility>

#include "platform/fatal_error.h"
#include "store/fm_statement.h"
#include "store/limits.h"

namespace brevant {
namespace {

using Step = StatementFailure::Step;

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
                       Log& log, StoreListener listener)
    : path_(std::move(path)),
      clock_(clock),
      random_(random),
      log_(log),
      listener_(std::move(listener)) {
  if (sqlite3_threadsafe() == 0) fatalError("SQLite is not built thread-safe");
}

FMDatabase::~FMDatabase() {
  close();
}

bool FMDatabase::open() {
  if (handle_) return true;
  const int result = sqlite3_open(path_ ? path_->c_str() : ":memory:", &handle_);
  if (result != SQLITE_OK) {
    fail({.step = Step::kOpen, .code = result});
    sqlite3_close(std::exchange(handle_, nullptr));  // SQLite makes a handle even then
    return false;
  }
  if (maxBusyRetryTimeInterval > 0) {
    const auto handler = [](void* self, int count) {
      return static_cast<FMDatabase*>(self)->retryAfterBusy(count) ? 1 : 0;
    };
    sqlite3_busy_handler(handle_, handler, this);
  }
  distrust();
  return true;
}

// The file is another program's: nothing in it may reach beyond it, run for ever, or hand over more
// than a text can sensibly have.
void FMDatabase::distrust() {
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, kMaxValueSize);
  const auto handler = [](void* self) {
    return static_cast<FMDatabase*>(self)->isOverdue() ? 1 : 0;
  };
  sqlite3_progress_handler(handle_, kStepsBetweenLooks, handler, this);
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
  if (!bind(*statement, arguments, Step::kQueryCount)) return nullptr;
  return std::make_unique<FMResultSet>(*this, std::move(statement), log_);
}

bool FMDatabase::executeUpdate(std::string_view sql, std::span<const Argument> arguments) {
  if (!isReady()) return false;
  const Executing executing(isExecuting_);
  const std::shared_ptr<FMStatement> statement = prepare(sql);
  if (!statement) return false;
  if (!bind(*statement, arguments, Step::kUpdateCount)) return false;
  const int result = sqlite3_step(statement->handle());
  if (result != SQLITE_DONE) {
    fail({.step = result == SQLITE_ROW ? Step::kUnexpectedRow : Step::kUpdate,
          .code = result,
          .sql = std::string(sql)});
  }
  if (const int ended = statement->reset(); ended != SQLITE_OK) {
    fail({.step = Step::kFinish, .code = ended, .sql = std::string(sql)});
  }
  return result == SQLITE_DONE;
}

bool FMDatabase::bind(FMStatement& statement, std::span<const Argument> arguments,
                      Step wrongCount) {
  const auto wanted = static_cast<std::size_t>(statement.parameterCount());
  if (arguments.size() != wanted) {
    fail({.step = wrongCount, .sql = statement.query, .given = arguments.size(), .wanted = wanted});
    return false;
  }
  const int result = statement.bind(arguments);
  if (result != SQLITE_OK) fail({.step = Step::kBind, .code = result, .sql = statement.query});
  return result == SQLITE_OK;
}

bool FMDatabase::isReady() {
  if (!handle_) fail({.step = Step::kClosed});
  if (isExecuting_) fail({.step = Step::kInUse});
  return handle_ && !isExecuting_;
}

std::shared_ptr<FMStatement> FMDatabase::prepare(std::string_view sql) {
  std::shared_ptr<FMStatement> statement = cachedStatement(sql);
  if (!statement) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle_, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr) !=
        SQLITE_OK) {
      fail({.step = Step::kPrepare, .code = lastErrorCode(), .sql = std::string(sql)});
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

int FMDatabase::lastExtendedErrorCode() const {
  return sqlite3_extended_errcode(handle_);
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

FMDatabase::Budget::Budget(FMDatabase* database)
    : database_(database && !database->deadline_ ? database : nullptr) {
  if (!database_) return;
  database_->deadline_ = database_->clock_.monotonicSeconds() + kMostSecondsOfWork;
  database_->spent_ = 0;
  database_->allowed_.reset();
}

FMDatabase::Budget::~Budget() {
  if (database_) database_->deadline_.reset();
}

// Called by SQLite from time to time while it runs a statement.
bool FMDatabase::isOverdue() const {
  return deadline_ && clock_.monotonicSeconds() >= *deadline_;
}

// What is read of tables cannot be more than the file has; twice, as some texts grow when they are
// converted to UTF-8.
bool FMDatabase::spend(std::size_t bytes) {
  if (!deadline_) return true;
  spent_ += bytes;
  if (spent_ <= kReadWithoutQuestion) return true;
  if (!allowed_) allowed_ = 2 * fileSize();
  return spent_ <= *allowed_;
}

std::size_t FMDatabase::fileSize() const {
  std::size_t size = 0;
  sqlite3_stmt* statement = nullptr;
  constexpr const char* kSize =
      "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size";
  if (sqlite3_prepare_v2(handle_, kSize, -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW) {
    size = static_cast<std::size_t>(sqlite3_column_int64(statement, 0));
  }
  sqlite3_finalize(statement);
  return size;
}

void FMDatabase::report(std::string_view line) {
  if (logsErrors) log_.write(line);
}

void FMDatabase::fail(StatementFailure failure) {
  failure.path = description();
  if (handle_ && failure.message.empty()) failure.message = lastErrorMessage();
  if (handle_) failure.extendedCode = lastExtendedErrorCode();
  const std::vector<std::string> lines = logLines(failure);
  for (const std::string& line : lines) report(line);
  if (listener_) listener_(std::move(failure));
  if (crashOnErrors) fatalError(lines.empty() ? "a change did not reach its row" : lines.front());
}

std::string FMDatabase::description() const {
  return path_.value_or(":memory:");
}

}  // namespace brevant
