// SPDX-License-Identifier: MIT
#include "widget/provider.h"

#include <gmock/gmock.h>

#include "tests/support/database.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

ActivityRef activity(const std::string& guid, std::int32_t state, std::optional<double> start) {
  auto made = std::make_shared<WidgetActivity>();
  made->guid = guid;
  made->state = state;
  if (start) made->start = dateFromSeconds(*start);
  return made;
}

TEST(EarliestRunningDeathTest, IsTheOneThatStartedFirst) {
  const ActivityRef ten = activity("ten", kStateRunning, 36000);
  const ActivityRef nine = activity("nine", kStateRunning, 32400);
  const ActivityRef alsoNine = activity("also nine", kStateRunning, 32400);
  const ActivityRef paused = activity("paused", kStatePaused, 1);
  const ActivityRef odd = activity("odd", 3, std::nullopt);
  EXPECT_EQ(earliestRunning({ten, paused, odd, nine, alsoNine}), nine);
  EXPECT_EQ(earliestRunning({alsoNine, nine}), alsoNine);
  EXPECT_EQ(earliestRunning({paused, odd}), nullptr);

  // Only a comparison needs the start.
  const ActivityRef unknown = activity("unknown", kStateRunning, std::nullopt);
  EXPECT_EQ(earliestRunning({unknown}), unknown);
  EXPECT_DEATH(earliestRunning({ten, unknown}), "Fatal error: a running activity has no start");
}

TEST(TotalDurationDeathTest, IsFatalBeyond64Bits) {
  const auto huge = std::make_shared<WidgetInterval>();
  huge->to = dateFromSeconds(1e19);
  const auto second = std::make_shared<WidgetInterval>();
  second->to = dateFromSeconds(1);
  EXPECT_EQ(totalDuration({}), 0U);
  EXPECT_EQ(totalDuration({huge, second}), 10'000'000'000'000'000'001U);
  EXPECT_DEATH(totalDuration({huge, second, huge}), "Fatal error: the total duration");
}

// Guid, name, start and duration.
std::string shown(const WidgetContent& entry) {
  return entry.guid + "|" + entry.name + "|" + std::to_string(secondsSince1970(entry.start)) + "|" +
         std::to_string(entry.duration);
}

class TimelineOf : public testing::Test {
 protected:
  TimelineOf() {
    const auto resource = [](const char* name) {
      return std::make_shared<Image>(Image{1, 1, 1, {0, 0, 0, 255}, name});
    };
    fakes.bundle.images["cat_1.png"] = resource("cat_1.png");
    fakes.bundle.images["cat_111@2x.png"] = resource("cat_111@2x.png");
    database.run(R"(
      INSERT INTO categories (guid, name, color, image_guid, order_num, is_group)
        VALUES ('C', 'Reading', 255, 'cat_1', 1, 0);
      INSERT INTO logs (guid, start_date, state, category_guid) VALUES ('A', 1000.5, 1, 'C');)");
  }

  Provider provider() { return {fakes.platform(), WidgetManager::open(fakes.platform())}; }

  // Absent when the provider delivered nothing.
  std::optional<Timeline<WidgetContent>> timeline() {
    std::optional<Timeline<WidgetContent>> delivered;
    provider().getTimeline([&](const Timeline<WidgetContent>& each) { delivered = each; });
    return delivered;
  }

  FakePlatform fakes;
  TestDatabase database{fakes};
};

TEST_F(TimelineOf, TheRunningActivityCountsItsClosedStretches) {
  database.run(R"(
    INSERT INTO time_intervals (guid, start, finish, start_m, finish_m, log_guid)
      VALUES ('I', 100, 160, 60, 120, 'A'), ('J', 200, 320, 180, 300, 'A');
    INSERT INTO logs (guid, start_date, state, category_guid)
      VALUES ('later', 2000, 1, 'gone'), ('paused', 10, 2, 'C');)");
  const auto delivered = timeline();
  ASSERT_TRUE(delivered && delivered->entries.size() == 1);
  const WidgetContent& entry = delivered->entries.front();
  EXPECT_EQ(shown(entry), "A|Reading|1000.500000|180");
  EXPECT_EQ(entry.date, fakes.clock.time);
  EXPECT_EQ(entry.icon->pixels, (std::vector<std::uint8_t>{0, 0, 255, 255}));  // in its colour
}

TEST_F(TimelineOf, NothingRunningIsTheEmptyEntry) {
  for (const char* change : {"UPDATE logs SET state = 2", "UPDATE logs SET is_deleted = 1"}) {
    database.run(change);
    const auto delivered = timeline();
    ASSERT_TRUE(delivered && delivered->entries.size() == 1);
    const WidgetContent& entry = delivered->entries.front();
    EXPECT_EQ(shown(entry), "||1700000000.000000|0");
    EXPECT_EQ(entry.icon->name, "cat_1.png");
    EXPECT_EQ(entry.date, fakes.clock.time);
  }
}

TEST_F(TimelineOf, AnActivityWithoutItsCategoryIsNotDelivered) {
  for (const char* change : {"UPDATE categories SET is_deleted = 1", "DELETE FROM categories",
                             "UPDATE logs SET category_guid = NULL"}) {
    database.run(change);
    EXPECT_FALSE(timeline()) << change;
  }
}

using TimelineOfDeathTest = TimelineOf;

TEST_F(TimelineOfDeathTest, WhatAnEntryNeedsIsFatalWhenAbsent) {
  const std::pair<const char*, const char*> cases[] = {
      {"UPDATE logs SET start_date = NULL", "Fatal error: a running activity has no start"},
      {"UPDATE categories SET image_guid = 'D7A1F3C0-0000-4000-8000-000000000001'",
       "Fatal error: the running activity's category has no icon"},
      {"UPDATE categories SET name = NULL",
       "Fatal error: the running activity's category has no name"},
      {"UPDATE logs SET guid = NULL", "Fatal error: the running activity has no guid"},
  };
  for (const auto& [change, cause] : cases) {
    database.run(change);
    EXPECT_DEATH(timeline(), cause);
  }
  database.run("UPDATE logs SET state = 2");
  fakes.bundle.images.clear();
  EXPECT_DEATH(timeline(), "Fatal error: the resource image cat_1.png is missing");
  EXPECT_DEATH(static_cast<void>(provider().placeholder()),
               "Fatal error: the resource image cat_111@2x.png is missing");
  EXPECT_DEATH(Provider(fakes.platform(), nullptr),
               "Fatal error: the timeline provider has no activity manager");
}

TEST_F(TimelineOf, TheSampleIsTheSameWhateverRuns) {
  std::vector<WidgetContent> samples{provider().placeholder()};
  provider().getSnapshot([&](const WidgetContent& each) { samples.push_back(each); });
  ASSERT_EQ(samples.size(), 2U);
  for (const WidgetContent& sample : samples) {
    EXPECT_EQ(shown(sample), "a|Sleep|1700000000.000000|0");
    EXPECT_EQ(sample.icon->name, "cat_111@2x.png");
  }
}

}  // namespace
}  // namespace brevant::test
