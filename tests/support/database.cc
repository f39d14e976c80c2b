// SPDX-License-Identifier: MIT
#include "tests/support/database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <utility>

namespace brevant::test {
namespace {

// The columns that the extension knows, and some that only the main application does.
constexpr const char* kSchema = R"(
CREATE TABLE categories (
  id INTEGER PRIMARY KEY, guid TEXT, name TEXT, color INTEGER, image_guid TEXT, order_num INTEGER,
  sync_status INTEGER DEFAULT 0, parent_guid TEXT, is_group INTEGER, is_archived INTEGER DEFAULT 0,
  is_deleted INTEGER DEFAULT 0, updated_on INTEGER DEFAULT 0, revision INTEGER DEFAULT 0);
CREATE TABLE logs (
  id INTEGER PRIMARY KEY, guid TEXT, start_date REAL, state INTEGER, comment TEXT,
  category_guid TEXT, sync_status INTEGER DEFAULT 0, is_deleted INTEGER DEFAULT 0,
  updated_on INTEGER DEFAULT 0, revision INTEGER DEFAULT 0, device TEXT DEFAULT 'phone');
CREATE TABLE time_intervals (
  id INTEGER PRIMARY KEY, guid TEXT, start REAL, finish REAL, start_m REAL, finish_m REAL,
  log_guid TEXT, category_guid TEXT, sync_status INTEGER DEFAULT 0, is_deleted INTEGER DEFAULT 0,
  updated_on INTEGER DEFAULT 0, revision INTEGER DEFAULT 0);
CREATE INDEX time_intervals_log ON time_intervals (log_guid);
)";

sqlite3* connect(const std::string& path) {
  sqlite3* connection = nullptr;
  EXPECT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK) << path;
  sqlite3_exec(connection, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);  // for speed
  return connection;
}

void execute(sqlite3* connection, const std::string& sql, std::string* rows) {
  const auto append = [](void* text, int columns, char** values, char**) {
    for (int i = 0; i < columns; ++i) {
      *static_cast<std::string*>(text) += (i > 0 ? "|" : "");
      *static_cast<std::string*>(text) += (values[i] ? values[i] : "NULL");
    }
    *static_cast<std::string*>(text) += '\n';
    return 0;
  };
  const int result = sqlite3_exec(connection, sql.c_str(), append, rows, nullptr);
  EXPECT_EQ(result, SQLITE_OK) << sql << ": " << sqlite3_errmsg(connection);
}

}  // namespace

TestDatabase::TestDatabase() {
  run(kSchema);
}

TestDatabase::TestDatabase(FakePlatform& fakes) : TestDatabase() {
  fakes.files.files[path] = "";
  fakes.files.container = folder;
}

std::string TestDatabase::ask(const std::string& sql) const {
  sqlite3* const connection = connect(path);
  std::string rows;
  execute(connection, sql, &rows);
  sqlite3_close(connection);
  return rows;
}

FileLock::FileLock(const TestDatabase& database, const std::string& kind)
    : connection_(connect(database.path)) {
  run("BEGIN " + kind);
}

void FileLock::run(const std::string& sql) const {
  std::string none;
  execute(connection_, sql, &none);
}

void FileLock::release() {
  sqlite3_close(std::exchange(connection_, nullptr));
}

}  // namespace brevant::test
