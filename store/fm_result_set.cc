#include "store/fm_result_set.h"

#include <algorithm>
#include <sqlite3.h>
#include <utility>

#include "store/fm_database.h"
#include "store/fm_statement.h"

namespace brevant {
namespace {

char lowercased(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isLowercaseOf(std::string_view lowercase, std::string_view name) {
  return std::ranges::equal(lowercase, name, {}, {}, lowercased);
}

}  // namespace

FMResultSet::FMResultSet(FMDatabase& parentDB, std::shared_ptr<FMStatement> statement, Log& log)
    : parentDB_(&parentDB), statement_(std::move(statement)), log_(log) {
  statement_->inUse = true;
  parentDB_->openResultSets_.insert(this);
}

FMResultSet::~FMResultSet() {
  close();
}

bool FMResultSet::next() {
  const int result = sqlite3_step(handle());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) reportStep(result);
  close();
  return false;
}

void FMResultSet::reportStep(int result) {
  if (!parentDB_) {
    log_.write("Error calling sqlite3_step (" + std::to_string(result) +
               ": parentDB does not exist) rs");
    return;
  }
  if (result == SQLITE_BUSY || result == SQLITE_LOCKED) {
    const std::string place = std::string(__func__) + ":" + std::to_string(__LINE__);
    parentDB_->fail({place + " Database busy (" + parentDB_->description() + ")", "Database busy"});
    return;
  }
  const bool isKnown = result == SQLITE_ERROR || result == SQLITE_MISUSE;
  const std::string kind = isKnown ? "Error" : "Unknown error";
  parentDB_->fail({kind + " calling sqlite3_step " + parentDB_->errorText(result) + " rs"});
}

std::optional<std::string> FMResultSet::stringForColumn(std::string_view name) {
  const std::optional<int> index = columnIndexForName(name);
  if (!index) return std::nullopt;
  const unsigned char* const text = sqlite3_column_text(handle(), *index);
  if (!text) return std::nullopt;
  return reinterpret_cast<const char*>(text);
}

std::int32_t FMResultSet::intForColumn(std::string_view name) {
  const std::optional<int> index = columnIndexForName(name);
  return index ? sqlite3_column_int(handle(), *index) : 0;
}

bool FMResultSet::boolForColumn(std::string_view name) {
  return intForColumn(name) != 0;
}

std::optional<Date> FMResultSet::dateForColumn(std::string_view name) {
  const std::optional<int> index = columnIndexForName(name);
  if (!index || sqlite3_column_type(handle(), *index) == SQLITE_NULL) return std::nullopt;
  return dateFromSeconds(sqlite3_column_double(handle(), *index));
}

std::optional<int> FMResultSet::columnIndexForName(std::string_view name) {
  if (columnNames_.empty()) readColumnNames();
  for (std::size_t i = columnNames_.size(); i-- > 0;) {
    if (isLowercaseOf(columnNames_[i], name)) return static_cast<int>(i);
  }
  const std::string line =
      "Warning: I could not find the column named '" + std::string(name) + "'.";
  parentDB_ ? parentDB_->report(line) : log_.write(line);
  return std::nullopt;
}

void FMResultSet::readColumnNames() {
  const int count = sqlite3_column_count(handle());
  for (int i = 0; i < count; ++i) {
    std::string name = sqlite3_column_name(handle(), i);
    std::ranges::transform(name, name.begin(), lowercased);
    columnNames_.push_back(std::move(name));
  }
}

void FMResultSet::close() {
  if (!parentDB_) return;
  parentDB_->openResultSets_.erase(this);
  parentDB_ = nullptr;
  statement_->reset();
  statement_.reset();
}

sqlite3_stmt* FMResultSet::handle() const {
  return statement_ ? statement_->handle() : nullptr;
}

}  // namespace brevant
