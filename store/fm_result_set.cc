// SPDX-License-Identifier: MIT
#include "store/fm_result_set.h"

#include <sqlite3.h>
#include <utility>

#include "store/fm_database.h"
#include "store/fm_statement.h"

namespace brevant {
namespace {

std::string lowercased(std::string_view name) {
  std::string result(name);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

}  // namespace

FMResultSet::FMResultSet(FMDatabase& parentDB, std::shared_ptr<FMStatement> statement, Log& log)
    : parentDB_(&parentDB),
      statement_(std::move(statement)),
      handle_(statement_->handle()),
      log_(log) {
  statement_->inUse = true;
  parentDB_->openResultSets_.push_back(this);
}

FMResultSet::~FMResultSet() {
  close();
}

bool FMResultSet::next() {
  // What a row takes in the file at least, with the columns that the main application gives each.
  constexpr std::size_t kLeastRow = 12;
  const int result = sqlite3_step(handle_);
  const bool isWithinBudget = !parentDB_ || parentDB_->spend(result == SQLITE_ROW ? kLeastRow : 0);
  if (result == SQLITE_ROW && isWithinBudget) return true;
  if (!isWithinBudget) {
    reportTooMuch();
  } else if (result != SQLITE_DONE) {
    reportStep(result);
  }
  failed_ = result != SQLITE_DONE || !isWithinBudget;
  close();
  return false;
}

void FMResultSet::reportStep(int result) {
  if (parentDB_) {
    parentDB_->fail({.step = StatementFailure::Step::kQuery, .code = result});
  } else {
    log_.write("Error calling sqlite3_step (" + std::to_string(result) +
               ": parentDB does not exist) rs");
  }
}

void FMResultSet::reportTooMuch() {
  parentDB_->fail({.step = StatementFailure::Step::kQuery,
                   .code = SQLITE_TOOBIG,
                   .message = "it answers more than its file can hold"});
}

bool FMResultSet::isFound(Column& column) {
  if (!column.index) column.index = columnIndexForName(column.name);
  return column.index.has_value();
}

std::optional<std::string> FMResultSet::stringForColumn(std::string_view name) {
  Column column{name};
  return stringForColumn(column);
}

std::optional<std::string> FMResultSet::stringForColumn(Column& column) {
  if (!isFound(column)) return std::nullopt;
  const unsigned char* const text = sqlite3_column_text(handle_, *column.index);
  if (!text) return std::nullopt;
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_, *column.index));
  if (parentDB_) static_cast<void>(parentDB_->spend(size));  // `next` tells when it was too much
  return std::string(reinterpret_cast<const char*>(text), size);
}

std::int32_t FMResultSet::intForColumn(std::string_view name) {
  const std::optional<int> index = columnIndexForName(name);
  return index ? sqlite3_column_int(handle_, *index) : 0;
}

bool FMResultSet::boolForColumn(std::string_view name) {
  return intForColumn(name) != 0;
}

std::optional<Date> FMResultSet::dateForColumn(std::string_view name) {
  Column column{name};
  return dateForColumn(column);
}

std::optional<Date> FMResultSet::dateForColumn(Column& column) {
  if (!isFound(column)) return std::nullopt;
  const double seconds = sqlite3_column_double(handle_, *column.index);
  // NULL reads as 0. To ask each date for its type first would take as long as to read it.
  const bool isNull = seconds == 0 && sqlite3_column_type(handle_, *column.index) == SQLITE_NULL;
  return isNull ? std::nullopt : std::optional(dateFromSeconds(seconds));
}

std::optional<int> FMResultSet::columnIndexForName(std::string_view name) {
  if (columns_.empty()) readColumns();
  std::optional<int> index = find(name);  // most often it is in lower case already
  if (!index) index = find(lowercased(name));
  if (!index) {
    const std::string line =
        "Warning: I could not find the column named '" + std::string(name) + "'.";
    parentDB_ ? parentDB_->report(line) : log_.write(line);
  }
  return index;
}

std::optional<int> FMResultSet::find(std::string_view lowercaseName) const {
  for (const auto& [name, index] : columns_) {
    if (name == lowercaseName) return index;
  }
  return std::nullopt;
}

void FMResultSet::readColumns() {
  const int count = sqlite3_column_count(handle_);
  columns_.reserve(static_cast<std::size_t>(count));
  for (int i = count - 1; i >= 0; --i) {  // of the same names the last is found first
    columns_.emplace_back(lowercased(sqlite3_column_name(handle_, i)), i);
  }
}

void FMResultSet::close() {
  if (!parentDB_) return;
  std::erase(parentDB_->openResultSets_, this);
  parentDB_ = nullptr;
  statement_->reset();
  statement_.reset();
  handle_ = nullptr;
}

}  // namespace brevant
