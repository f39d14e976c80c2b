// SPDX-License-Identifier: MIT
#include "store/fm_database.h"

#include <functional>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "tests/support/database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Every look at the time is a moment later, and may do something.
struct PassingClock : FakeClock {
  double monotonicSeconds() const override {
    if (atEachLook) atEachLook();
    return passed += 0.25;
  }

  mutable double passed = 1000;
  std::function<void()> atEachLook;
};

class FMDatabaseTest : public testing::Test {
 protected:
  FMDatabaseTest() { db.open(); }

  std::string one(const std::string& sql, std::span<const Argument> arguments = {}) {
    const auto row = db.executeQuery(sql, arguments);
    if (!row || !row->next()) return "no row";
    return row->stringForColumn("x").value_or("NULL");
  }

  TestDatabase file;
  PassingClock clock;
  FakeRandom random;
  FakeLog log;
  FMDatabase db{file.path, clock, random, log};
};

TEST_F(FMDatabaseTest, StoresEachKindOfArgumentInItsOwnForm) {
  const std::vector<std::uint8_t> bytes{1, 0, 255};
  const std::vector<std::uint8_t> noBytes;
  const char* const noText = nullptr;
  const std::optional<std::string> noName;
  const std::string name("\xC3\xA4\0b", 4);
  const std::pair<Argument, std::string> kCases[] = {
      {std::nullopt, "null NULL"},
      {noText, "null NULL"},
      {noName, "null NULL"},
      {std::optional<Date>(dateFromSeconds(1.5)), "real 1.5"},
      {dateFromSeconds(-0.25), "real -0.25"},
      {Argument::Blob(bytes), "blob X'0100FF'"},
      {Argument::Blob(noBytes), "blob X''"},
      {static_cast<signed char>(-1), "integer -1"},
      {static_cast<unsigned short>(65535), "integer 65535"},
      {-1, "integer -1"},
      {4294967295U, "integer 4294967295"},
      {INT64_MIN, "integer -9223372036854775808"},
      {UINT64_MAX, "integer -1"},
      {true, "integer 1"},
      {0.1F, "real 0.10000000149011612"},
      {0.1, "real 0.10000000000000001"},
      {std::numeric_limits<double>::infinity(), "real Inf"},
      {std::numeric_limits<double>::quiet_NaN(), "null NULL"},
      {2.5L, "text '2.500000'"},
      {"it's", "text 'it''s'"},
      {std::string_view(), "text ''"},
      {name, "text '\xC3\xA4'"},
  };
  for (const auto& [argument, stored] : kCases) {
    EXPECT_EQ(one("SELECT typeof(?1) || ' ' || CASE typeof(?1) WHEN 'real' THEN "
                  "printf('%!.17g', ?1) ELSE quote(?1) END AS x",
                  std::span(&argument, 1)),
              stored);
  }
}

TEST_F(FMDatabaseTest, RunsNothingWithTheWrongNumberOfArguments) {
  EXPECT_EQ(db.executeQuery("SELECT ?, ?, ?", 1, 2), nullptr);
  EXPECT_EQ(db.executeQuery("SELECT ?", 1, 2), nullptr);
  EXPECT_FALSE(db.executeUpdate("INSERT INTO logs (guid, state) VALUES (?, ?)", "a"));
  const std::string query =
      "Error: the bind count is not correct for the # of variables (executeQuery)";
  EXPECT_THAT(log.lines,
              ElementsAre(query, query,
                          "Error: the bind count (1) is not correct for the # of variables in the "
                          "query (2) (INSERT INTO logs (guid, state) VALUES (?, ?)) "
                          "(executeUpdate)"));
  EXPECT_EQ(file.ask("SELECT count(*) FROM logs"), "0\n");
}

TEST_F(FMDatabaseTest, LogsWhyAStatementFailed) {
  db.executeUpdate("CREATE TABLE once (x UNIQUE)");
  db.executeUpdate("INSERT INTO once VALUES (1)");
  EXPECT_FALSE(db.executeUpdate("UPDATE absent SET x = 1"));
  EXPECT_EQ(db.lastErrorCode(), SQLITE_ERROR);
  EXPECT_EQ(db.lastErrorMessage(), "no such table: absent");
  EXPECT_FALSE(db.executeUpdate("SELECT 1"));
  EXPECT_FALSE(db.executeUpdate("INSERT INTO once VALUES (1)"));
  EXPECT_FALSE(db.executeUpdate("SELECT abs(-9223372036854775807 - 1)"));
  EXPECT_FALSE(db.executeUpdate(""));
  EXPECT_FALSE(db.commit());
  EXPECT_THAT(
      log.lines,
      ElementsAre("DB Error: 1 \"no such table: absent\"", "DB Query: UPDATE absent SET x = 1",
                  "DB Path: " + file.path,
                  "A executeUpdate is being called with a query string 'SELECT 1'",
                  "Unknown error calling sqlite3_step (19: UNIQUE constraint failed: once.x) eu",
                  "Unknown error finalizing or resetting statement (19: UNIQUE constraint failed: "
                  "once.x)",
                  "Error calling sqlite3_step (1: integer overflow) SQLITE_ERROR",
                  "Unknown error finalizing or resetting statement (1: integer overflow)",
                  StartsWith("Error calling sqlite3_step (21: "),
                  "Error calling sqlite3_step (1: cannot commit - no transaction is active) "
                  "SQLITE_ERROR",
                  HasSubstr("finalizing or resetting statement (1: cannot commit")));

  log.lines.clear();
  db.logsErrors = false;
  EXPECT_FALSE(db.executeUpdate("UPDATE absent SET x = 1"));
  EXPECT_THAT(log.lines, IsEmpty());
  db.crashOnErrors = true;
  EXPECT_DEATH(db.executeUpdate("UPDATE absent SET x = 1"), "no such table: absent");
}

TEST_F(FMDatabaseTest, RefusesStatementsWhileClosedOrExecuting) {
  db.close();
  EXPECT_EQ(db.executeQuery("SELECT 1"), nullptr);
  EXPECT_FALSE(db.executeUpdate("SELECT 1"));
  const std::string notOpen = "The FMDatabase " + file.path + " is not open.";
  EXPECT_THAT(log.lines, ElementsAre(notOpen, notOpen));

  log.lines.clear();
  db.open();
  FileLock lock(file);
  clock.atEachLook = [&] {
    EXPECT_EQ(db.executeQuery("SELECT 1"), nullptr);
    lock.release();
    clock.atEachLook = nullptr;
  };
  EXPECT_TRUE(db.executeUpdate("DELETE FROM logs"));
  EXPECT_THAT(log.lines, ElementsAre("The FMDatabase " + file.path + " is currently in use."));
}

TEST_F(FMDatabaseTest, WaitsForALockedFileUpToTwoSeconds) {
  FileLock lock(file);
  int looks = 0;
  clock.atEachLook = [&] {
    if (++looks == 5) lock.release();  // after one second
  };
  EXPECT_TRUE(db.executeUpdate("INSERT INTO logs (guid) VALUES ('late')"));
  EXPECT_THAT(log.lines, IsEmpty());

  const FileLock again(file);
  looks = 0;
  EXPECT_FALSE(db.executeUpdate("INSERT INTO logs (guid) VALUES ('never')"));
  EXPECT_EQ(looks, 9);  // at the start and until two seconds have passed
  EXPECT_EQ(db.lastErrorCode(), SQLITE_BUSY);

  looks = 0;
  db.close();
  db.maxBusyRetryTimeInterval = 0;
  db.open();
  EXPECT_FALSE(db.beginTransaction());
  EXPECT_EQ(looks, 0);
}

TEST_F(FMDatabaseTest, LocksTheFileFromTheBeginOfATransactionToItsEnd) {
  FMDatabase other(file.path, clock, random, log);
  other.maxBusyRetryTimeInterval = 0;
  other.open();
  EXPECT_TRUE(db.beginTransaction());
  EXPECT_FALSE(db.beginTransaction());
  EXPECT_FALSE(other.beginTransaction());
  EXPECT_TRUE(db.executeUpdate("INSERT INTO logs (guid) VALUES ('undone')"));
  EXPECT_TRUE(db.rollback());
  EXPECT_TRUE(db.beginDeferredTransaction());
  EXPECT_TRUE(other.executeUpdate("INSERT INTO logs (guid) VALUES ('kept')"));
  EXPECT_TRUE(db.commit());
  EXPECT_EQ(file.ask("SELECT guid FROM logs"), "kept\n");
}

TEST_F(FMDatabaseTest, ClosesWithOpenCursorsAndLeakedStatements) {
  const auto row = db.executeQuery("SELECT 1 AS x UNION SELECT 2");
  ASSERT_TRUE(row->next());
  sqlite3_stmt* leaked = nullptr;
  sqlite3_prepare_v2(db.sqliteHandle(), "SELECT 3", -1, &leaked, nullptr);
  EXPECT_TRUE(db.close());
  EXPECT_EQ(db.sqliteHandle(), nullptr);
  EXPECT_TRUE(db.close());
  EXPECT_THAT(log.lines, ElementsAre("Closing leaked statement"));
  EXPECT_TRUE(db.open());
  EXPECT_EQ(one("SELECT 4 AS x"), "4");
}

TEST_F(FMDatabaseTest, ReportsWhatItCannotOpen) {
  FMDatabase nowhere((file.folder / "missing" / "x.sqlite").string(), clock, random, log);
  EXPECT_FALSE(nowhere.open());
  EXPECT_EQ(nowhere.sqliteHandle(), nullptr);
  EXPECT_THAT(log.lines, ElementsAre("error opening!: 14"));
}

TEST_F(FMDatabaseTest, CachesStatementsOnlyWhenTold) {
  const auto prepared = [&] {
    int count = 0;
    for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(db.sqliteHandle(), each));) {
      ++count;
    }
    return count;
  };
  const std::string sql = "SELECT ? AS x UNION ALL SELECT 'more'";
  const Argument a[] = {"a"};
  const Argument b[] = {"b"};
  EXPECT_EQ(one(sql, a), "a");
  EXPECT_EQ(prepared(), 0);
  db.shouldCacheStatements = true;
  EXPECT_EQ(one(sql, a) + one(sql, b), "ab");
  EXPECT_EQ(prepared(), 1);
  const auto outer = db.executeQuery(sql, "outer");  // in use: the inner needs another statement
  ASSERT_TRUE(outer->next());
  EXPECT_EQ(one(sql, b), "b");
  EXPECT_EQ(outer->stringForColumn("x"), "outer");
  EXPECT_TRUE(db.close());
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace brevant::test
