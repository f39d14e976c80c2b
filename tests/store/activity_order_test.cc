// SPDX-License-Identifier: MIT
#include "store/activity_order.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace brevant {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<WidgetInterval> until(std::optional<double> end) {
  auto interval = std::make_shared<WidgetInterval>();
  if (end) interval->to = dateFromSeconds(*end);
  return interval;
}

ActivityRef activity(const char* name, std::int32_t state, std::optional<double> start,
                     std::optional<IntervalList> intervals) {
  auto made = std::make_shared<WidgetActivity>();
  made->guid = name;
  made->state = state;
  if (start) made->start = dateFromSeconds(*start);
  made->intervals = std::move(intervals);
  return made;
}

TEST(ActivityOrderTest, IsTheSameHoweverTheActivitiesArrive) {
  const ActivityList ordered{
      activity("runs, latest start", kStateRunning, 300, IntervalList{}),
      activity("runs, earlier start", kStateRunning, 200, IntervalList{until(9000)}),
      activity("runs since before 1970", kStateRunning, -5, IntervalList{}),
      activity("runs, no start", kStateRunning, std::nullopt, IntervalList{}),
      activity("paused, no intervals", kStatePaused, 1000, IntervalList{}),
      activity("paused, latest end first", kStatePaused, std::nullopt,
               IntervalList{until(500), until(100), until(kNaN)}),
      activity("paused, latest end amid", kStatePaused, 2000,
               IntervalList{until(std::nullopt), until(400), until(399)}),
      activity("paused, earliest end", kStatePaused, std::nullopt, IntervalList{until(-400)}),
      activity("paused, no end", kStatePaused, std::nullopt, IntervalList{until(std::nullopt)}),
  };
  std::mt19937 random(1);
  for (int round = 0; round < 500; ++round) {
    ActivityList shuffled = ordered;
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    sortForDisplay(shuffled);
    ASSERT_EQ(shuffled, ordered) << "round " << round;
  }
}

// Enough entries that a comparison without a strict order would lead a sort astray.
TEST(ActivityOrderTest, KeepsEqualActivitiesInTheirOrder) {
  ActivityList activities;
  for (int i = 0; i < 300; ++i) {
    const double time = i % 5 == 0 ? kNaN : i % 3;
    activities.push_back(activity("any", i % 2 == 0 ? kStateRunning : kStatePaused, time,
                                  i % 7 < 3 ? IntervalList{} : IntervalList{until(time)}));
  }
  ActivityList once = activities;
  sortForDisplay(once);
  ActivityList twice = once;
  sortForDisplay(twice);
  EXPECT_EQ(twice, once);
  EXPECT_TRUE(std::is_permutation(once.begin(), once.end(), activities.begin()));
}

}  // namespace
}  // namespace brevant
