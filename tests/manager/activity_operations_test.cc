// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "manager/widget_manager.h"
#include "tests/manager/manager_on_database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;

// Every operation begins half a second after this, and with each reading of the clock another half
// passes. All times are told from here.
constexpr double kZero = 1'700'000'000;

struct TimedLog : ManagerOnDatabase {
  TimedLog() {
    fakes.clock.time = dateFromSeconds(kZero + 0.5);
    fakes.clock.tick = Seconds(0.5);
  }

  void setMinimum(std::int64_t choice) { fakes.settings.values["activityMinDuration"] = {choice}; }
  std::string logs() const {
    return database.ask(
        "SELECT state, start_date - 1.7e9, updated_on - 1700000000 FROM logs "
        "WHERE is_deleted = 0");
  }
  std::string intervals() const {
    return database.ask("SELECT start - 1.7e9, finish - 1.7e9 FROM time_intervals");
  }
};

struct ActivityOperations : testing::Test, TimedLog {};

enum class Operation { kStop, kPause, kResume };

TEST_F(ActivityOperations, ChangeTheLog) {
  struct Case {
    const char* what;
    Operation operation;
    int minimum;  // 1, 2 and 3 mean 10, 60 and 300 seconds
    int state;
    const char* start;
    const char* earlier;  // interval
    const char* logsAfter;
    const char* intervalsAfter;
  };
  using enum Operation;
  const Case cases[] = {
      {"stop adds the stretch", kStop, 0, 1, "-99.5", "", "0|NULL|0\n", "-99.5|1.0\n"},
      {"pause too", kPause, 0, 1, "-99", "-9, -8", "2|NULL|0\n", "-9.0|-8.0\n-99.0|1.0\n"},
      {"an only stretch too short", kStop, 2, 1, "-58.9", "", "", ""},
      {"when pausing", kPause, 1, 1, "-8", "", "", ""},
      {"a later one too short", kStop, 3, 1, "-298", "-9, -8", "0|NULL|0\n", "-9.0|-8.0\n"},
      {"the minimum is enough", kStop, 2, 1, "-59", "", "0|NULL|0\n", "-59.0|1.0\n"},
      {"an unknown minimum is none", kStop, 4, 1, "1", "", "0|NULL|0\n", "1.0|1.0\n"},
      {"a negative one neither", kStop, -1, 1, "1", "", "0|NULL|0\n", "1.0|1.0\n"},
      {"a start in the future", kStop, 1, 1, "5000", "", "", ""},
      {"no start counts from 1970", kStop, 3, 1, "NULL", "", "0|NULL|0\n", "NULL|1.0\n"},
      {"stop paused", kStop, 0, 2, "NULL", "", "0|NULL|0\n", ""},
      {"pause paused", kPause, 3, 2, "NULL", "-9, -8", "2|NULL|0\n", "-9.0|-8.0\n"},
      {"resume", kResume, 3, 2, "NULL", "-9, -8", "1|1.0|0\n", "-9.0|-8.0\n"},
      {"resume running loses what ran", kResume, 0, 1, "-99", "", "1|1.0|0\n", ""},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    TimedLog on;
    on.setMinimum(each.minimum);
    on.database.run("INSERT INTO logs (guid, state, start_date) VALUES ('A', " +
                    std::to_string(each.state) + ", 1.7e9 + " + each.start + ")");
    if (*each.earlier) {
      on.database.run(
          "INSERT INTO time_intervals (guid, log_guid, start, finish) SELECT 'I', 'A', "
          "1.7e9 + column1, 1.7e9 + column2 FROM (VALUES (" +
          std::string(each.earlier) + "))");
    }
    const ActivityRef activity = on.onlyActivity();
    if (each.operation == kStop) on.manager.stopActivity(*activity);
    if (each.operation == kPause) on.manager.pauseActivity(*activity);
    if (each.operation == kResume) on.manager.resumeActivity(*activity);
    EXPECT_EQ(on.logs(), each.logsAfter);
    EXPECT_EQ(on.intervals(), each.intervalsAfter);
  }
}

TEST_F(ActivityOperations, AGapBetweenPauseAndResumeIsInNoInterval) {
  manager.startActivity("C");
  manager.startActivity("D");  // several may run at once
  EXPECT_EQ(logs(), "1|0.5|1\n1|1.5|2\n");
  database.run("DELETE FROM logs WHERE category_guid = 'D'");
  fakes.clock.time = dateFromSeconds(kZero + 100);
  manager.pauseActivity(*onlyActivity());
  fakes.clock.time = dateFromSeconds(kZero + 200);
  manager.resumeActivity(*onlyActivity());
  fakes.clock.time = dateFromSeconds(kZero + 300);
  manager.stopActivity(*onlyActivity());
  EXPECT_EQ(intervals(), "0.5|100.5\n200.5|300.5\n");
}

TEST_F(ActivityOperations, StopChangesTheCallersObjectPauseAndResumeDoNot) {
  WidgetActivity activity;
  activity.state = kStateRunning;
  activity.start = dateFromSeconds(kZero - 99);
  manager.resumeActivity(activity);
  manager.pauseActivity(activity);
  EXPECT_EQ(activity.state, kStateRunning);
  EXPECT_EQ(activity.start, dateFromSeconds(kZero - 99));
  EXPECT_FALSE(activity.intervals);

  manager.stopActivity(activity);
  EXPECT_EQ(activity.state, kStateStopped);
  EXPECT_FALSE(activity.start);
  ASSERT_EQ(activity.intervals->size(), 1U);
  EXPECT_EQ(activity.intervals->front()->updatedOn, activity.updatedOn);
}

TEST_F(ActivityOperations, EachSignalsOnceAndOnlyFromAMac) {
  setMinimum(3);
  manager.startActivity("C");
  EXPECT_THAT(fakes.cloud.saved, ElementsAre());

  fakes.process.onMac = true;
  manager.resumeActivity(*onlyActivity());
  manager.stopActivity(*onlyActivity());  // deletes it: too short
  fakes.cloud.error = "no account";
  manager.startActivity("C");
  fakes.cloud.error = "";
  database.run("DROP TABLE logs");
  manager.pauseActivity(WidgetActivity());  // whether or not the write took effect
  ASSERT_EQ(fakes.cloud.saved.size(), 3U);
  for (const auto& [container, record] : fakes.cloud.saved) {
    EXPECT_EQ(container, "iCloud.brevant");
    EXPECT_EQ(record.recordType, "WidgetUpdate");
    EXPECT_EQ(record.recordName.size(), 36U);
    EXPECT_THAT(record.fields, ElementsAre(testing::Pair("deviceGuid", "")));
  }
  EXPECT_NE(fakes.cloud.saved[0].second.recordName, fakes.cloud.saved[1].second.recordName);
}

}  // namespace
}  // namespace brevant::test
