// SPDX-License-Identifier: MIT
#include "store/fm_result_set.h"

#include <gmock/gmock.h>

#include "store/fm_database.h"
#include "tests/support/database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FMResultSetTest : public testing::Test {
 protected:
  FMResultSetTest() { db->open(); }

  FakeClock clock;
  FakeRandom random;
  FakeLog log;
  std::unique_ptr<FMDatabase> db = std::make_unique<FMDatabase>(std::nullopt, clock, random, log);
};

TEST_F(FMResultSetTest, ReadsEveryTypeAsSQLiteConvertsIt) {
  using Text = std::optional<std::string>;
  const std::tuple<const char*, Text, std::int32_t, std::optional<double>> kCases[] = {
      {"NULL", std::nullopt, 0, std::nullopt},
      {"0.0", "0.0", 0, 0.0},
      {"1700000000.25", "1700000000.25", 1700000000, 1700000000.25},
      {"-1", "-1", -1, -1},
      {"4294967296", "4294967296", 0, 4294967296.0},
      {"9e999", "Inf", -1, std::numeric_limits<double>::infinity()},
      {"'12abc'", "12abc", 12, 12},
      {"''", "", 0, 0},
      {"x''", "", 0, 0},
      {"x'31FF'", "1\xFF", 1, 1},
      {"CAST(x'610062' AS TEXT)", std::string("a\0b", 3), 0, 0},
  };
  for (const auto& [value, text, number, date] : kCases) {
    const auto row = db->executeQuery(std::string("SELECT ") + value + " AS Value");
    ASSERT_TRUE(row->next());
    EXPECT_EQ(row->intForColumn("value"), number) << value;
    EXPECT_EQ(row->boolForColumn("value"), number != 0) << value;
    const std::optional<Date> read = row->dateForColumn("VALUE");
    EXPECT_EQ(read, date ? std::optional(dateFromSeconds(*date)) : std::nullopt) << value;
    EXPECT_EQ(row->stringForColumn("vaLUe"), text) << value;
  }
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(FMResultSetTest, WarnsOfAColumnThatIsNotThere) {
  const auto row = db->executeQuery("SELECT 1 AS guid, 2 AS GUID, 3 AS guid2");
  ASSERT_TRUE(row->next());
  EXPECT_EQ(row->columnIndexForName("Guid"), 1);
  EXPECT_EQ(row->stringForColumn("Name"), std::nullopt);
  EXPECT_EQ(row->intForColumn("gui"), 0);
  EXPECT_EQ(row->dateForColumn(""), std::nullopt);
  EXPECT_THAT(log.lines, ElementsAre("Warning: I could not find the column named 'Name'.",
                                     "Warning: I could not find the column named 'gui'.",
                                     "Warning: I could not find the column named ''."));
}

TEST_F(FMResultSetTest, OutlivesItsConnection) {
  const auto row = db->executeQuery("SELECT 1 AS x UNION SELECT 2");
  ASSERT_TRUE(row->next());
  EXPECT_EQ(row->intForColumn("x"), 1);
  db.reset();
  EXPECT_EQ(row->intForColumn("x"), 0);
  EXPECT_EQ(row->stringForColumn("x"), std::nullopt);
  EXPECT_FALSE(row->next());
  row->close();
  EXPECT_THAT(log.lines,
              ElementsAre("Error calling sqlite3_step (21: parentDB does not exist) rs"));
}

TEST_F(FMResultSetTest, LetsGoOfTheFileWithItsLastRowOrItself) {
  TestDatabase file;
  file.run("INSERT INTO logs (guid) VALUES ('a'), ('b')");
  FMDatabase reader(file.path, clock, random, log);
  FMDatabase writer(file.path, clock, random, log);
  writer.maxBusyRetryTimeInterval = 0;
  reader.open();
  writer.open();
  auto row = reader.executeQuery("SELECT guid FROM logs");
  ASSERT_TRUE(row->next());
  EXPECT_FALSE(writer.executeUpdate("DELETE FROM time_intervals"));
  while (row->next()) continue;
  EXPECT_TRUE(writer.executeUpdate("DELETE FROM time_intervals"));
  row = reader.executeQuery("SELECT guid FROM logs");
  ASSERT_TRUE(row->next());
  row.reset();
  EXPECT_TRUE(writer.executeUpdate("DELETE FROM time_intervals"));
}

TEST_F(FMResultSetTest, ReportsWhyThereIsNoRow) {
  TestDatabase file;
  FMDatabase reader(file.path, clock, random, log);
  reader.maxBusyRetryTimeInterval = 0;
  reader.open();
  auto row = reader.executeQuery("SELECT guid FROM logs");  // the schema is known now
  row = reader.executeQuery("SELECT guid FROM logs");
  {
    const FileLock lock(file);
    EXPECT_FALSE(row->next());
  }
  EXPECT_THAT(log.lines,
              ElementsAre(testing::MatchesRegex(".+:[0-9]+ Database busy \\(" + file.path + "\\)"),
                          "Database busy"));
  log.lines.clear();
  row = reader.executeQuery("SELECT abs(-9223372036854775807 - 1)");
  EXPECT_FALSE(row->next());
  row = reader.executeQuery("SELECT zeroblob(2000000000)");
  EXPECT_FALSE(row->next());
  EXPECT_THAT(log.lines,
              ElementsAre("Error calling sqlite3_step (1: integer overflow) rs",
                          "Unknown error calling sqlite3_step (18: string or blob too big) rs"));
}

}  // namespace
}  // namespace brevant::test
