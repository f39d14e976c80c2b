// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/date.h"
#include "platform/log.h"

struct sqlite3_stmt;

namespace brevant {

class FMDatabase;
class FMStatement;

// A forward-only cursor over the rows of a query. It starts before the first row and closes itself
// after the last, on any error, with its connection and when it is destroyed; it may outlive its
// connection and then has no more rows. Same thread as the connection.
//
// Columns are found by name, whatever its case, and their values read as SQLite converts them. NULL
// and a column that the query does not have read as absent, 0 or false; the latter is logged.
class FMResultSet {
 public:
  FMResultSet(FMDatabase& parentDB, std::shared_ptr<FMStatement> statement, Log& log);
  ~FMResultSet();
  FMResultSet(const FMResultSet&) = delete;
  FMResultSet& operator=(const FMResultSet&) = delete;

  // Steps to the next row, if there is one. Not to be called again after it was false.
  [[nodiscard]] bool next();

  // Whether `next` was false for an error, so that rows may be missing.
  [[nodiscard]] bool failed() const { return failed_; }

  // A column of a cursor's every row: its name is looked up once, at its first use.
  struct Column {
    std::string_view name;
    std::optional<int> index = std::nullopt;
  };

  // The whole text, whatever bytes it has.
  [[nodiscard]] std::optional<std::string> stringForColumn(std::string_view name);

  [[nodiscard]] std::optional<std::string> stringForColumn(Column& column);

  [[nodiscard]] std::int32_t intForColumn(std::string_view name);
  [[nodiscard]] bool boolForColumn(std::string_view name);

  // The number of seconds since 1970-01-01 00:00 UTC.
  [[nodiscard]] std::optional<Date> dateForColumn(std::string_view name);
  [[nodiscard]] std::optional<Date> dateForColumn(Column& column);

  // Of columns with the same name the last.
  [[nodiscard]] std::optional<int> columnIndexForName(std::string_view name);

  void close();

 private:
  bool isFound(Column& column);
  void readColumns();
  std::optional<int> find(std::string_view lowercaseName) const;
  void reportStep(int result);
  void reportTooMuch();

  // All null once closed.
  FMDatabase* parentDB_;
  std::shared_ptr<FMStatement> statement_;
  sqlite3_stmt* handle_;

  bool failed_ = false;
  Log& log_;
  // Index by name in lower case, read at the first look-up. So few that a search beats any map.
  std::vector<std::pair<std::string, int>> columns_;
};

}  // namespace brevant
