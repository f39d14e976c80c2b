// SPDX-License-Identifier: MIT
#include "store/database_check.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>
#include <string_view>

#include "store/limits.h"

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

// What the extension asks, and the index without which each answer reads a whole table.
struct Query {
  const char* sql;
  const char* index;
};
constexpr Query kQueries[] = {
    {"SELECT guid, name, color, image_guid, order_num, sync_status, parent_guid, is_group, "
     "is_archived FROM categories WHERE is_deleted = 0 AND is_archived = 0 ORDER BY order_num",
     nullptr},
    {"SELECT guid, start_date, state, comment, category_guid FROM logs "
     "WHERE (state = 1 OR state = 2) AND is_deleted = 0",
     "CREATE INDEX logs_state ON logs (state, is_deleted)"},
    {"SELECT guid, start, finish, start_m, finish_m FROM time_intervals "
     "WHERE is_deleted=0 AND log_guid = ''",
     "CREATE INDEX time_intervals_log ON time_intervals (log_guid)"},
};

bool readsAll(sqlite3* connection, const std::string& sql) {
  bool scans = false;
  const auto look = [](void* result, int count, char** values, char**) {
    const std::string_view step = values[count - 1] == nullptr ? "" : values[count - 1];
    if (step.starts_with("SCAN")) *static_cast<bool*>(result) = true;
    return 0;
  };
  sqlite3_exec(connection, ("EXPLAIN QUERY PLAN " + sql).c_str(), look, &scans, nullptr);
  return scans;
}

// A view without end is to end all the same. Counted, as the clock is not ours to read: some
// seconds of work.
int stop(void* looks) {
  constexpr int kMost = 10'000;
  return ++*static_cast<int*>(looks) > kMost ? 1 : 0;
}

// Only a damaged file is to be restored; one that is locked, or has a view without end, is not.
void fail(sqlite3* connection, DatabaseReport& report) {
  const int code = sqlite3_errcode(connection);
  const bool isDamaged = code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
  (isDamaged ? report.damage : report.unreadable) = sqlite3_errmsg(connection);
}

// Runs a query and forgets its rows, of which there may be very many.
bool runs(sqlite3* connection, const char* sql) {
  return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace

DatabaseReport checkDatabase(const std::string& path) {
  constexpr int kWait = 2000;  // milliseconds, for whoever has the file locked
  DatabaseReport report;
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
  const Connection connection(handle, &sqlite3_close);
  sqlite3_busy_timeout(handle, kWait);
  int looks = 0;
  sqlite3_progress_handler(handle, kStepsBetweenLooks, stop, &looks);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kMaxValueSize);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // Nothing is read before the first query; the transaction holds what it found for the others.
  if (opened != SQLITE_OK || !runs(handle, "BEGIN; SELECT count(*) FROM sqlite_master")) {
    fail(handle, report);
    return report;
  }
  for (const Table& table : expectedTables()) {
    for (std::string& part : missingParts(handle, table)) report.missing.push_back(std::move(part));
  }
  const auto mode = query(handle, "PRAGMA journal_mode");
  if (mode && !mode->empty()) report.journalMode = mode->front();
  const auto integrity = query(handle, "PRAGMA integrity_check(1)");
  if (!integrity || integrity->empty()) {
    fail(handle, report);
  } else if (integrity->front() != "ok") {
    report.damage = integrity->front();
  }
  if (report.damage || report.unreadable || !report.missing.empty()) return report;
  for (const Query& each : kQueries) {
    if (!runs(handle, each.sql)) fail(handle, report);
    if (!report.unreadable && each.index != nullptr && readsAll(handle, each.sql)) {
      report.slow.emplace_back(each.index);
    }
  }
  return report;
}

}  // namespace brevant
