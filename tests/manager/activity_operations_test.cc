#include <gmock/gmock.h>

#include "manager/widget_manager.h"
#include "tests/manager/manager_on_database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;

// Every operation runs at this time; with each reading of the clock half a second passes.
constexpr double kNow = 1'700'000'000.7;

struct TimedLog : ManagerOnDatabase {
  TimedLog() {
    fakes.clock.time = dateFromSeconds(kNow);
    fakes.clock.tick = Seconds(0.5);
  }

  void setMinimum(PropertyValue choice) {
    fakes.settings.values["activityMinDuration"] = std::move(choice);
  }
  std::string logs() const {
    return database.ask("SELECT state, start_date, updated_on, is_deleted FROM logs");
  }
  std::string intervals() const {
    return database.ask("SELECT start, finish FROM time_intervals WHERE is_deleted = 0");
  }
};

struct ActivityOperations : testing::Test, TimedLog {};

enum class Operation { kStop, kPause, kResume };

TEST_F(ActivityOperations, ChangeTheLog) {
  struct Case {
    const char* what;
    Operation operation;
    PropertyValue minimum;
    const char* before;     // state, start_date
    const char* intervals;  // start, finish
    const char* logsAfter;
    const char* intervalsAfter;
  };
  const auto minimum = [](std::int64_t choice) { return PropertyValue{choice}; };
  using enum Operation;
  const Case cases[] = {
      {"stop closes the stretch", kStop, minimum(0), "1, 1699999000.25", "",
       "0|NULL|1700000000|0\n", "1699999000.25|1700000001.2\n"},
      {"pause closes it too", kPause, minimum(0), "1, 1699999000.25", "(1, 2)",
       "2|NULL|1700000000|0\n", "1.0|2.0\n1699999000.25|1700000001.2\n"},
      {"a first stretch that is too short deletes the activity", kStop, minimum(2), "1, 1699999971",
       "", "1|1699999971.0|1700000001|1\n", ""},
      {"pausing it, too", kPause, minimum(1), "1, 1699999991.3", "",
       "1|1699999991.3|1700000001|1\n", ""},
      {"a later one is only dropped", kStop, minimum(2), "1, 1699999971", "(1, 2)",
       "0|NULL|1700000000|0\n", "1.0|2.0\n"},
      {"the minimum itself is enough", kStop, minimum(2), "1, 1699999941.2", "",
       "0|NULL|1700000000|0\n", "1699999941.2|1700000001.2\n"},
      {"300 seconds", kStop, minimum(3), "1, 1699999702", "(1, 2)", "0|NULL|1700000000|0\n",
       "1.0|2.0\n"},
      {"unknown choices set no minimum", kStop, minimum(4), "1, 1700000001.2", "",
       "0|NULL|1700000000|0\n", "1700000001.2|1700000001.2\n"},
      {"negative ones neither", kStop, minimum(-1), "1, 1700000001", "", "0|NULL|1700000000|0\n",
       "1700000001.0|1700000001.2\n"},
      {"a start in the future is no time", kStop, minimum(1), "1, 1800000000", "",
       "1|1800000000.0|1700000001|1\n", ""},
      {"a missing start is all the time since 1970", kStop, minimum(3), "1, NULL", "",
       "0|NULL|1700000000|0\n", "NULL|1700000001.2\n"},
      {"stopping a paused one adds nothing", kStop, minimum(0), "2, NULL", "",
       "0|NULL|1700000000|0\n", ""},
      {"pausing a paused one neither", kPause, minimum(3), "2, NULL", "(1, 2)",
       "2|NULL|1700000000|0\n", "1.0|2.0\n"},
      {"resume starts a stretch", kResume, minimum(3), "2, NULL", "(1, 2)",
       "1|1700000001.2|1700000000|0\n", "1.0|2.0\n"},
      {"resuming a running one loses what ran", kResume, minimum(0), "1, 1699999000", "",
       "1|1700000001.2|1700000000|0\n", ""},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    TimedLog on;
    on.setMinimum(each.minimum);
    on.database.run(std::string("INSERT INTO logs (guid, state, start_date) VALUES ('A', ") +
                    each.before + ")");
    if (*each.intervals) {
      on.database.run(std::string("INSERT INTO time_intervals (start, finish, guid, log_guid) ") +
                      "SELECT *, 'I', 'A' FROM (VALUES " + each.intervals + ")");
    }
    const ActivityRef activity = on.onlyActivity();
    if (each.operation == kStop) on.manager.stopActivity(*activity);
    if (each.operation == kPause) on.manager.pauseActivity(*activity);
    if (each.operation == kResume) on.manager.resumeActivity(*activity);
    EXPECT_EQ(on.logs(), each.logsAfter);
    EXPECT_EQ(on.intervals(), each.intervalsAfter);
  }
}

TEST_F(ActivityOperations, StartAddsARunningActivityBesideOthers) {
  manager.startActivity("C");
  manager.startActivity("C");
  EXPECT_EQ(database.ask("SELECT category_guid, state, start_date, updated_on FROM logs"),
            "C|1|1700000000.7|1700000001\nC|1|1700000001.7|1700000002\n");
  EXPECT_EQ(manager.findRunningActivities().size(), 2U);
}

TEST_F(ActivityOperations, StopChangesTheCallersObjectPauseAndResumeDoNot) {
  WidgetActivity activity;
  activity.guid = "A";
  activity.state = kStateRunning;
  activity.start = dateFromSeconds(1000);
  manager.resumeActivity(activity);
  manager.pauseActivity(activity);
  EXPECT_EQ(activity.state, kStateRunning);
  EXPECT_EQ(activity.start, dateFromSeconds(1000));
  EXPECT_FALSE(activity.intervals);

  manager.stopActivity(activity);
  EXPECT_EQ(activity.state, kStateStopped);
  EXPECT_FALSE(activity.start);
  ASSERT_EQ(activity.intervals->size(), 1U);
  const WidgetInterval& interval = *activity.intervals->front();
  EXPECT_EQ(interval.from, dateFromSeconds(1000));
  EXPECT_EQ(interval.updatedOn, activity.updatedOn);
}

TEST_F(ActivityOperations, AGapBetweenPauseAndResumeIsInNoInterval) {
  fakes.clock.tick = Seconds(0);
  manager.startActivity("C");
  fakes.clock.time += Seconds(100);
  manager.pauseActivity(*onlyActivity());
  fakes.clock.time += Seconds(1000);
  manager.resumeActivity(*onlyActivity());
  fakes.clock.time += Seconds(10);
  const ActivityRef activity = onlyActivity();
  manager.stopActivity(*activity);
  EXPECT_EQ(intervals(), "1700000000.7|1700000100.7\n1700001100.7|1700001110.7\n");
  EXPECT_EQ(activity->intervals->back()->duration(), 10U);
}

TEST_F(ActivityOperations, EachSignalsOnceAndOnlyFromAMac) {
  setMinimum({std::int64_t{3}});
  manager.startActivity("C");
  EXPECT_THAT(fakes.cloud.saved, ElementsAre());

  fakes.process.onMac = true;
  fakes.cloud.error = "no account";
  manager.pauseActivity(WidgetActivity());
  fakes.cloud.error = "";
  manager.startActivity("C");
  manager.resumeActivity(*onlyActivity());
  manager.stopActivity(*onlyActivity());  // deletes it: too short
  database.run("DROP TABLE logs");
  manager.pauseActivity(WidgetActivity());  // whether or not the write took effect
  ASSERT_EQ(fakes.cloud.saved.size(), 4U);
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
