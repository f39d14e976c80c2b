// SPDX-License-Identifier: MIT
#include "store/widget_dao.h"

#include <gmock/gmock.h>

#include "store/fm_database.h"
#include "tests/support/database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr const char* kGuid = "[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}";

std::shared_ptr<WidgetInterval> interval(const char* guid, double from, double to) {
  auto made = std::make_shared<WidgetInterval>();
  if (guid) made->guid = guid;
  made->from = dateFromSeconds(from);
  made->to = dateFromSeconds(to);
  return made;
}

class WidgetDAOTest : public testing::Test {
 protected:
  bool isFlagRaised() const {
    return fakes.settings.boolean("widgetUpdatedActivity") && fakes.settings.synchronizations == 1;
  }

  FakePlatform fakes;
  TestDatabase file{fakes};
  WidgetDAO dao{fakes.platform(), file.path};
};

TEST_F(WidgetDAOTest, FindsVisibleTypesInTheirOrder) {
  file.run(
      "INSERT INTO categories (guid, name, order_num, is_group, is_archived, is_deleted) VALUES "
      "('c', 'C', 3, 0, 0, 0), ('a', 'A', -1, 1, 0, 0), ('b', 'B', 2, NULL, 0, 0), "
      "('archived', 'X', 0, 0, 1, 0), ('deleted', 'X', 0, 0, 0, 1)");
  const TypeList types = dao.findTypes();
  ASSERT_EQ(types.size(), 3U);
  EXPECT_EQ(*types[0]->guid + *types[1]->guid + *types[2]->guid, "abc");
  EXPECT_NE(dynamic_cast<WidgetGroup*>(types[0].get()), nullptr);
}

TEST_F(WidgetDAOTest, FindsUnfinishedActivitiesWithTheirIntervals) {
  file.run(
      "INSERT INTO logs (guid, start_date, state, comment, category_guid, is_deleted) VALUES "
      "('p1', NULL, 2, NULL, 'c', 0), ('stopped', 1, 0, '', 'c', 0), ('other', 1, 3, '', 'c', 0), "
      "('deleted', 1, 1, '', 'c', 1), ('r1', 100.5, 1, 'hello', 'c', 0), ('r2', 200, 1, '', 'c', "
      "0),"
      "('p2', NULL, 2, NULL, 'c', 0), (NULL, NULL, 2, NULL, NULL, 0);"
      "INSERT INTO time_intervals (guid, start, finish, log_guid, is_deleted) VALUES "
      "('i1', 1, 2, 'p1', 0), ('i2', 3, 4, 'p1', 0), ('gone', 5, 6, 'p1', 1), "
      "('i3', 1, 9, 'p2', 0), ('stray', 1, 9, NULL, 0)");
  const ActivityList activities = dao.findActivities();
  std::vector<std::string> found;
  for (const ActivityRef& activity : activities) {
    found.push_back(activity->guid.value_or("NULL"));
    for (const auto& each : activity->intervals.value()) found.back() += " " + *each->guid;
  }
  EXPECT_THAT(found, ElementsAre("r2", "r1", "NULL", "p2 i3", "p1 i1 i2"));
  EXPECT_EQ(activities[1]->start, dateFromSeconds(100.5));
  EXPECT_EQ(activities[1]->comment, "hello");
  EXPECT_THAT(fakes.log.lines, IsEmpty());
}

TEST_F(WidgetDAOTest, SavesANewActivityWithNewGuids) {
  fakes.calendar.offsetSeconds = -20;  // as some zones had
  WidgetActivity activity;
  activity.guid = "replaced";
  activity.categoryGuid = "it's";
  activity.comment = "not written";
  activity.state = kStateRunning;
  activity.start = dateFromSeconds(1700000000.25);
  activity.updatedOn = UINT64_MAX;
  activity.intervals = IntervalList{interval("replaced", 1699999259.9, 1699999320)};
  activity.intervals->push_back(std::make_shared<WidgetInterval>());  // without dates
  dao.save(activity);
  EXPECT_THAT(*activity.guid, MatchesRegex(kGuid));
  EXPECT_THAT(*activity.intervals->front()->guid, MatchesRegex(kGuid));
  EXPECT_EQ(file.ask("SELECT guid, start_date, state, typeof(state), comment, category_guid, "
                     "sync_status, is_deleted, updated_on, typeof(updated_on), revision, device "
                     "FROM logs"),
            *activity.guid + "|1700000000.25|1|integer|NULL|it's|1|0|-1|integer|0|phone\n");
  const std::string common = "|" + *activity.guid + "|it's|1|0|-1|0\n";
  EXPECT_EQ(file.ask("SELECT guid, start, finish, start_m, finish_m, log_guid, category_guid, "
                     "sync_status, is_deleted, updated_on, revision FROM time_intervals"),
            *(*activity.intervals)[0]->guid +
                "|1699999259.9|1699999320.0|1699999220.0|1699999280.0" + common +
                *(*activity.intervals)[1]->guid + "|NULL|NULL|NULL|NULL" + common);
  EXPECT_TRUE(isFlagRaised());
  EXPECT_THAT(fakes.log.lines, IsEmpty());
}

TEST_F(WidgetDAOTest, UpdatesAnActivityAndInsertsItsNewIntervals) {
  file.run(
      "INSERT INTO logs (guid, start_date, state, comment, category_guid) VALUES "
      "('a', 50, 1, 'mine', 'c'), ('b', 50, 1, 'other', 'c');"
      "INSERT INTO time_intervals (guid, start, finish, start_m, finish_m, log_guid) VALUES "
      "('i', 1, 2, 0, 0, 'a'), ('j', 1, 2, 0, 0, 'b')");
  WidgetActivity activity;
  activity.guid = "a";
  activity.categoryGuid = "d";
  activity.state = -2;
  activity.updatedOn = 77;
  activity.intervals =
      IntervalList{interval("i", 100, 200), interval("", 60, 130), interval(nullptr, 1, 2)};
  activity.intervals->front()->updatedOn = 66;
  dao.update(activity);
  EXPECT_EQ(file.ask("SELECT guid, start_date, state, comment, category_guid, sync_status, "
                     "updated_on FROM logs"),
            "a|NULL|4294967294|mine|d|1|77\nb|50.0|1|other|c|0|0\n");
  EXPECT_EQ(file.ask("SELECT start, finish, start_m, finish_m, log_guid, category_guid, "
                     "sync_status, updated_on FROM time_intervals"),
            "100.0|200.0|0.0|0.0|a|NULL|1|66\n1.0|2.0|0.0|0.0|b|NULL|0|0\n"
            "60.0|130.0|60.0|120.0|a|d|1|77\n1.0|2.0|0.0|0.0|a|d|1|77\n");
  EXPECT_EQ(file.ask("SELECT count(DISTINCT guid), min(length(guid)) FROM time_intervals "
                     "WHERE length(guid) > 1"),
            "2|36\n");
  EXPECT_TRUE(isFlagRaised());
}

TEST_F(WidgetDAOTest, MarksARemovedActivityAndItsIntervals) {
  file.run(
      "INSERT INTO logs (guid, state) VALUES ('a', 1), ('b', 1);"
      "INSERT INTO time_intervals (guid, log_guid) VALUES ('i', 'a'), ('j', 'b')");
  fakes.clock.time = dateFromSeconds(1234.9);
  WidgetActivity activity;
  activity.guid = "a";
  activity.updatedOn = 1;
  dao.removeLogSilently(activity);
  EXPECT_EQ(file.ask("SELECT guid, is_deleted, sync_status, updated_on FROM logs UNION "
                     "SELECT guid, is_deleted, sync_status, updated_on FROM time_intervals"),
            "a|1|1|1234\nb|0|0|0\ni|1|1|1234\nj|0|0|0\n");
  EXPECT_TRUE(isFlagRaised());
}

TEST(WidgetDAOWithoutFileTest, FindsNothingStoresNothingAndCreatesNothing) {
  FakePlatform fakes;
  const TestDatabase file;
  const std::string missing = (file.folder / "missing.sqlite").string();
  for (const auto& path : {std::optional<std::string>(missing), std::optional<std::string>()}) {
    WidgetDAO dao(fakes.platform(), path);
    EXPECT_EQ(dao.db, nullptr);
    EXPECT_THAT(dao.findTypes(), IsEmpty());
    EXPECT_THAT(dao.findActivities(), IsEmpty());
    WidgetActivity activity;
    activity.intervals = IntervalList{interval("", 1, 2)};
    dao.update(activity);
    EXPECT_THAT(*activity.intervals->front()->guid, MatchesRegex(kGuid));
    dao.save(activity);
    EXPECT_THAT(*activity.guid, MatchesRegex(kGuid));
    dao.removeLogSilently(activity);
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_THAT(fakes.settings.values, IsEmpty());
  EXPECT_THAT(fakes.log.lines, IsEmpty());
}

}  // namespace
}  // namespace brevant::test
