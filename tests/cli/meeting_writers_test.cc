// SPDX-License-Identifier: MIT

// Changes that meet: each works on what the one before it left, and says what is stored.
#include <chrono>
#include <thread>

#include "tests/support/cli.h"

namespace brevant::test {
namespace {

const std::string kLink = "brevant:///widget?type=running&action=";

class MeetingWriters : public Cli {
 protected:
  void SetUp() override { addCategory("C", "Code"); }

  // One activity under each name, running since 1699999000 with an earlier stretch.
  void addRunning(const std::vector<std::string>& guids) {
    for (const std::string& guid : guids) {
      addActivity(guid, "C", 1, "1699999000");
      database.run("INSERT INTO time_intervals (guid, log_guid, start, finish) VALUES ('I" + guid +
                   "', '" + guid + "', 1699990000, 1699990060)");
    }
  }

  std::string rows() const {
    return database.ask("SELECT * FROM logs ORDER BY guid") +
           database.ask("SELECT * FROM time_intervals ORDER BY guid");
  }
};

TEST_F(MeetingWriters, EqualPausesStoreOneStretch) {
  for (const char* mode : {"DELETE", "TRUNCATE", "PERSIST", "WAL"}) {
    database.run(std::string("PRAGMA journal_mode = ") + mode);
    for (int round = 0; round < 4; ++round) {
      database.run("DELETE FROM logs; DELETE FROM time_intervals");
      addActivity("A", "C", 1, "1699999000");
      for (const Outcome& outcome : runTogether({{"pause", "A"}, {"pause", "A"}, {"pause", "A"}})) {
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
      }
      EXPECT_EQ(stateOf("A"), "2\n");
      EXPECT_EQ(database.ask("SELECT count(*), sum(finish - start) FROM time_intervals"),
                "1|1000.0\n")
          << mode;
    }
  }
}

// The main application has the file while each of our doors is already waiting for it.
TEST_F(MeetingWriters, WhatAnotherDidFirstStands) {
  const std::vector<std::vector<std::string>> doors{
      {"pause", "A"},
      {"stop", "B"},
      {"resume", "C"},
      {"intent", "StopActivityIntent", "D", "stop"},
      {"intent", "StopActivityLiveIntent", "E", "pause"},
      {"open", kLink + "pause&activity=F"}};
  const std::pair<const char*, bool> edits[] = {
      // and whether our change can still be made
      {"UPDATE logs SET state = 0, start_date = NULL, updated_on = 7", false},
      {"UPDATE logs SET is_deleted = 1, updated_on = 7; UPDATE time_intervals SET is_deleted = 1",
       false},
      {"UPDATE logs SET category_guid = 'D', comment = 'edited'; UPDATE time_intervals SET start = "
       "1699980000",
       true}};
  for (const auto& [edit, isPossible] : edits) {
    SCOPED_TRACE(edit);
    database.run("DELETE FROM logs; DELETE FROM time_intervals");
    addRunning({"A", "B", "C", "D", "E", "F"});
    database.run("UPDATE logs SET state = 2, start_date = NULL WHERE guid = 'C'");
    std::vector<std::unique_ptr<Process>> waiting;
    {
      const FileLock tracker(database, "IMMEDIATE");
      for (const auto& door : doors) {
        waiting.push_back(std::make_unique<Process>(words(door), environment));
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(400));
      tracker.run(std::string(edit) + "; COMMIT");
    }
    const std::string after = rows();
    for (const auto& process : waiting) {
      const Outcome outcome = process->wait();
      EXPECT_EQ(outcome.exitCode, isPossible ? 0 : 1) << outcome.err;
      if (isPossible) continue;
      EXPECT_NE(outcome.err.find("not running or paused"), std::string::npos) << outcome.err;
    }
    if (!isPossible) {
      EXPECT_EQ(rows(), after);
      continue;
    }
    EXPECT_EQ(database.ask("SELECT group_concat(state, ''), min(category_guid), min(comment) FROM "
                           "(SELECT * FROM logs ORDER BY guid)"),
              "201022|D|edited\n");
    EXPECT_EQ(database.ask("SELECT count(*), sum(start = 1699980000), sum(category_guid = 'D') "
                           "FROM time_intervals"),
              "11|6|5\n");
  }
}

// Without its earlier stretches a short activity would be deleted with all its history.
TEST_F(MeetingWriters, AFailedReadIsNoEmptyAnswer) {
  write("Library/Preferences/group.brevant.plist",
        "<plist version=\"1.0\"><dict><key>activityMinDuration</key><integer>3</integer></dict>"
        "</plist>");
  addRunning({"A"});
  database.run(
      "UPDATE logs SET start_date = 1699999990; ALTER TABLE time_intervals "
      "RENAME COLUMN finish_m TO gone");
  const std::string before = rows();
  for (const auto& door :
       std::vector<std::vector<std::string>>{{"intent", "StopActivityIntent", "A", "stop"},
                                             {"intent", "StopActivityLiveIntent", "A", "pause"},
                                             {"open", kLink + "stop&activity=A"},
                                             {"stop", "A"}}) {
    const Outcome outcome = run(door);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_NE(outcome.err.find("nothing was changed: no such column: finish_m"), std::string::npos)
        << outcome.err;
  }
  EXPECT_EQ(rows(), before);

  // A name that too few of the categories were read to find.
  database.run(
      "ALTER TABLE time_intervals RENAME COLUMN gone TO finish_m;"
      "UPDATE logs SET start_date = 1699999000;"
      "ALTER TABLE categories RENAME COLUMN order_num TO gone");
  const std::string later = rows();
  EXPECT_EQ(run({"pause", "Code"}).exitCode, 1);
  database.run(
      "ALTER TABLE categories RENAME COLUMN gone TO order_num;"
      "CREATE INDEX o ON categories (order_num);"
      "UPDATE categories SET order_num = 1;"
      "INSERT INTO categories (guid, name, order_num) VALUES ('Z', zeroblob(9000000), 2)");
  EXPECT_EQ(run({"pause", "Code"}).exitCode, 1);
  EXPECT_EQ(rows(), later);
}

// A statement that goes well is no proof of a change.
TEST_F(MeetingWriters, AChangeThatDoesNotReachItsRowIsUndone) {
  for (const char* trigger :
       {"BEFORE UPDATE ON logs BEGIN SELECT RAISE(IGNORE); END",
        "AFTER UPDATE OF state ON logs WHEN new.state <> 1 BEGIN UPDATE logs SET state = 1, "
        "start_date = 1699999000; END",
        "BEFORE INSERT ON time_intervals BEGIN SELECT RAISE(IGNORE); END"}) {
    SCOPED_TRACE(trigger);
    database.run("DELETE FROM logs; DELETE FROM time_intervals");
    addRunning({"A"});
    database.run(std::string("CREATE TRIGGER t ") + trigger);
    const std::string before = rows();
    const Outcome outcome = run({"pause", "A"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_NE(outcome.err.find("nothing was changed"), std::string::npos) << outcome.err;
    EXPECT_EQ(rows(), before);
    EXPECT_FALSE(std::filesystem::exists(path("Library")));
    database.run("DROP TRIGGER t");
  }
}

TEST_F(MeetingWriters, IntentsNeedADatabaseThatIsThere) {
  std::filesystem::rename(database.path, path("elsewhere"));
  for (const char* name : {"StopActivityIntent", "StopActivityLiveIntent"}) {
    EXPECT_EQ(run({"intent", name, "A", "stop"}).exitCode, 1);
  }
}

}  // namespace
}  // namespace brevant::test
