// SPDX-License-Identifier: MIT
#include <chrono>
#include <set>
#include <thread>

#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Changes : public Cli {
 protected:
  void SetUp() override {
    addCategory("C", "Code");
    addCategory("D", "Walk");
    database.run("INSERT INTO categories (guid, name, is_group) VALUES ('G', 'Group', 1)");
  }
};

TEST_F(Changes, StartByGuidOrNameAndPrintTheNewGuid) {
  const std::string guid = ask({"start", "cODE"})["guid"];
  const std::string second = run({"start", "D"}).out;
  EXPECT_EQ(second, database.ask("SELECT guid FROM logs WHERE category_guid = 'D'"));
  EXPECT_EQ(
      database.ask("SELECT category_guid, state, start_date FROM logs WHERE guid = '" + guid + "'"),
      "C|1|1700000000.0\n");
  database.run("UPDATE categories SET name = 'D' WHERE guid = 'C'");
  EXPECT_EQ(run({"start", "D"}).exitCode, 0);
  EXPECT_EQ(database.ask("SELECT count(*) FROM logs WHERE category_guid = 'D'"), "2\n");
  for (const char* none : {"Group", "G", "Nothing", ""}) {
    EXPECT_EQ(run({"start", none}).exitCode, 1) << none;
  }
  EXPECT_EQ(database.ask("SELECT count(*) FROM logs"), "3\n");
}

TEST_F(Changes, WithoutGuidMeanTheOnlyOneThatCanBeMeant) {
  const struct {
    const char* states;  // of the activities 0, 1, …
    const char* command;
    const char* after;  // empty: refused
  } cases[] = {{"1", "pause", "2"},  {"12", "pause", "22"}, {"2", "pause", ""},
               {"11", "pause", ""},  {"2", "resume", "1"},  {"12", "resume", "11"},
               {"1", "resume", ""},  {"22", "resume", ""},  {"1", "stop", "0"},
               {"12", "stop", "02"}, {"2", "stop", "0"},    {"22", "stop", ""},
               {"11", "stop", ""},   {"112", "stop", ""},   {"", "stop", ""},
               {"", "pause", ""},    {"", "resume", ""}};
  for (const auto& [states, command, after] : cases) {
    SCOPED_TRACE(std::string(states) + ' ' + command);
    database.run("DELETE FROM logs");
    int number = 0;
    for (const char state : std::string(states)) {
      addActivity("A" + std::to_string(number++), "C", state - '0',
                  state == '1' ? "1699999000" : "NULL");
    }
    const Outcome outcome = run({command});
    EXPECT_EQ(outcome.exitCode, *after == '\0' ? 1 : 0) << outcome.err;
    const std::string wanted = *after == '\0' ? states : after;
    EXPECT_EQ(database.ask("SELECT coalesce(group_concat(state, ''), '') FROM "
                           "(SELECT state FROM logs ORDER BY guid)"),
              wanted + '\n');
    if (std::string(states).size() < 2 || *after != '\0') continue;
    for (const char* candidate : {"A0 (Code)", "A1 (Code)"}) {
      EXPECT_NE(outcome.err.find(candidate), std::string::npos) << outcome.err;
    }
  }
}

TEST_F(Changes, TellWhatBecameOfTheActivity) {
  addActivity("A", "C", 1, "1699999990");
  EXPECT_EQ(run({"pause", "A"}).out, "Paused Code after 0:00:10\n");
  EXPECT_EQ(run({"resume", "A"}).out, "Resumed Code\n");
  EXPECT_EQ(run({"resume", "A"}).err, "brevant: nothing was changed: it is running already\n");
  EXPECT_EQ(run({"stop", "A"}).out, "Stopped Code after 0:00:10\n");
  EXPECT_EQ(run({"stop", "A"}).err,
            "brevant: nothing was changed: the activity A is not running or paused\n");

  write("Library/Preferences/group.brevant.plist",
        "<plist version=\"1.0\"><dict><key>activityMinDuration</key><integer>2</integer></dict>"
        "</plist>");
  for (const char* command : {"stop", "pause"}) {
    database.run("DELETE FROM logs; DELETE FROM time_intervals");
    addActivity("A", "C", 1, "1699999990");
    EXPECT_EQ(run({command}).out, "Removed Code: it was too short to be kept\n");
    EXPECT_EQ(database.ask("SELECT is_deleted FROM logs"), "1\n");
  }
  for (const auto& [command, done] : {std::pair("stop", "Stopped"), {"pause", "Paused"}}) {
    database.run("DELETE FROM logs; DELETE FROM time_intervals");
    addActivity("A", "C", 1, "1699999990");
    addInterval("A", 1699990000, 1699990070);
    EXPECT_EQ(run({command}).out, done + std::string(" Code after 0:01:10\n"));
  }
}

TEST_F(Changes, WaitForALockThatGoesInTime) {
  addActivity("A", "C", 1, "1699999000");
  FileLock lock(database);
  Process stop(words({"stop", "A"}), environment);
  std::this_thread::sleep_for(std::chrono::milliseconds(600));
  lock.release();
  EXPECT_EQ(stop.wait().exitCode, 0);
  EXPECT_EQ(stateOf("A"), "0\n");
}

TEST_F(Changes, ThatCannotBeWrittenSayWhyAndChangeNothing) {
  addActivity("A", "C", 1, "1699999000");
  addActivity("B", "C", 2, "NULL");
  const std::string before = database.bytes();
  const std::vector<std::vector<std::string>> commands{
      {"start", "C"},
      {"stop", "A"},
      {"pause", "A"},
      {"resume", "B"},
      {"pause", "B"},
      {"open", "brevant:///widget?type=running&action=stop&activity=A"},
      {"intent", "StopActivityIntent", "A", "stop"}};
  const auto expectRefused = [&](const std::string& why) {
    for (const Outcome& outcome : runTogether(commands)) {
      EXPECT_EQ(outcome.exitCode, 1);
      EXPECT_EQ(outcome.out, "");
      const std::string last = outcome.err.substr(outcome.err.rfind("brevant: "));
      EXPECT_NE(last.find("nothing was changed"), std::string::npos) << outcome.err;
      EXPECT_NE(last.find(why), std::string::npos) << outcome.err;
    }
  };
  {
    const FileLock lock(database);
    expectRefused("the database stayed locked");
  }
  EXPECT_EQ(database.bytes(), before);

  // Readers pass, writers do not.
  database.run(
      "CREATE TRIGGER full BEFORE UPDATE ON logs BEGIN SELECT RAISE(ABORT, 'no room'); END;"
      "CREATE TRIGGER new BEFORE INSERT ON logs BEGIN SELECT RAISE(ABORT, 'no room'); END");
  expectRefused("no room");
  EXPECT_EQ(stateOf("A") + stateOf("B"), "1\n2\n");
  EXPECT_FALSE(std::filesystem::exists(path("Library")));
}

TEST_F(Changes, OfSeveralProcessesAreAllThereAndEachTellsItsOwn) {
  std::set<std::string> guids;
  for (const Outcome& outcome :
       runTogether(std::vector(8, std::vector<std::string>{"start", "C"}))) {
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    guids.insert(outcome.out);
  }
  EXPECT_EQ(guids.size(), 8U);
  std::string all;
  for (const std::string& guid : guids) all += guid;
  EXPECT_EQ(database.ask("SELECT guid FROM logs ORDER BY guid"), all);
}

TEST_F(Changes, ByLinkNeedItsExactTextAndAKnownGuid) {
  addActivity("A", "C", 1, "1699999000");
  addActivity("B", "C", 2, "NULL");
  const std::string id =
      ask({"live", "start"}, R"({"guid":"A","typeName":"Code","icon":"cat_2","color":1,)"
                             R"("start":700000000,"message":""})")["id"];
  const std::string before = database.bytes();
  for (const char* link : {"", "brevant:///widget?type=running&action=stop&activity=",
                           "brevant:///widget?type=running&action=stop&activity=X",
                           "brevant:///widget?type=live_activity&action=stop&activity=X",
                           "Brevant:///widget?type=running&action=stop&activity=A",
                           " brevant:///widget?type=running&action=stop&activity=A ",
                           "brevant:///widget?type=running&action=stop&activity=%41",
                           "brevant:///widget?type=running&action=stop&activity=a"}) {
    EXPECT_EQ(run({"open", link}).exitCode, 1) << link;
  }
  EXPECT_EQ(database.bytes(), before);
  EXPECT_EQ(ask({"live", "list"}).size(), 1U);

  EXPECT_EQ(run({"open", "brevant:///widget?type=running&action=pause&activity=A"}).exitCode, 0);
  EXPECT_EQ(stateOf("A"), "2\n");
  EXPECT_EQ(ask({"live", "list"}).size(), 1U);
  EXPECT_EQ(run({"open", "brevant:///widget?type=live_activity&action=stop&activity=A"}).exitCode,
            0);
  EXPECT_EQ(stateOf("A"), "0\n");
  EXPECT_EQ(ask({"live", "list"}).size(), 0U);
  EXPECT_EQ(ask({"live", "list", "--all"})[0]["id"], id);
}

}  // namespace
}  // namespace brevant::test
