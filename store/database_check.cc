// SPDX-License-Identifier: MIT
#include "store/database_check.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>
#include <string_view>

namespace brevant {
namespace {

// The part of the main application's schema that the extension relies on.
struct Table {
  const char* name;
  std::vector<std::string_view> columns;
};

std::vector<Table> expectedTables() {
  return {
      {"categories",
       {"guid", "name", "color", "image_guid", "order_num", "sync_status", "parent_guid",
        "is_group", "is_archived", "is_deleted"}},
      {"logs",
       {"guid", "start_date", "state", "comment", "category_guid", "sync_status", "is_deleted",
        "updated_on"}},
      {"time_intervals",
       {"guid", "start", "finish", "start_m", "finish_m", "log_guid", "category_guid",
        "sync_status", "is_deleted", "updated_on"}},
  };
}

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Rows = std::vector<std::string>;

// The first column of each row; absent when the query fails.
std::optional<Rows> query(sqlite3* connection, const std::string& sql) {
  Rows rows;
  const auto append = [](void* list, int, char** values, char**) {
    static_cast<Rows*>(list)->emplace_back(values[0] == nullptr ? "" : values[0]);
    return 0;
  };
  if (sqlite3_exec(connection, sql.c_str(), append, &rows, nullptr) != SQLITE_OK) {
    return std::nullopt;
  }
  return rows;
}

std::vector<std::string> missingParts(sqlite3* connection, const Table& table) {
  const std::string name = table.name;
  const auto columns =
      query(connection, "SELECT lower(name) FROM pragma_table_info('" + name + "')");
  if (!columns || columns->empty()) return {name};
  std::vector<std::string> missing;
  for (const std::string_view column : table.columns) {
    if (std::find(columns->begin(), columns->end(), column) == columns->end()) {
      missing.push_back(name + '.' + std::string(column));
    }
  }
  return missing;
}

}  // namespace

DatabaseReport checkDatabase(const std::string& path) {
  constexpr int kWait = 2000;  // milliseconds, for whoever has the file locked
  DatabaseReport report;
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
  const Connection connection(handle, &sqlite3_close);
  sqlite3_busy_timeout(handle, kWait);
  // Nothing is read before the first query.
  if (opened != SQLITE_OK || !query(handle, "SELECT count(*) FROM sqlite_master")) {
    const int code = sqlite3_errcode(handle);
    const bool isDamaged = code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
    (isDamaged ? report.damage : report.unreadable) = sqlite3_errmsg(handle);
    return report;
  }
  for (const Table& table : expectedTables()) {
    for (std::string& part : missingParts(handle, table)) report.missing.push_back(std::move(part));
  }
  const auto mode = query(handle, "PRAGMA journal_mode");
  if (mode && !mode->empty()) report.journalMode = mode->front();
  const auto integrity = query(handle, "PRAGMA integrity_check(1)");
  if (!integrity || integrity->empty()) {
    report.damage = sqlite3_errmsg(handle);
  } else if (integrity->front() != "ok") {
    report.damage = integrity->front();
  }
  return report;
}

}  // namespace brevant
