// SPDX-License-Identifier: MIT
#include "widget/stop_activity_intent.h"

#include <gtest/gtest.h>

#include "tests/support/database.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

class StopActivity : public testing::Test {
 protected:
  StopActivity() {
    database.run(R"(
      INSERT INTO logs (guid, start_date, state, category_guid) VALUES
        ('running', 1699990000, 1, 'C'), ('paused', NULL, 2, 'C'), ('stopped', NULL, 0, 'C'),
        (NULL, 1699990000, 1, 'C'), ('twice', 1699990001, 1, 'C'), ('twice', 1699990002, 1, 'C');)");
  }

  // The states of all rows, in the order above, once the intent has run.
  std::string statesAfter(const StopActivityIntent& intent) {
    intent.perform(fakes.platform());
    return database.ask("SELECT group_concat(state, '') FROM (SELECT state FROM logs ORDER BY id)");
  }

  FakePlatform fakes;
  TestDatabase database{fakes};
};

TEST_F(StopActivity, ChangesExactlyTheOneItNames) {
  const std::pair<StopActivityIntent, const char*> cases[] = {
      {{"running", "Stop"}, "120111\n"},  {{"running", "resume"}, "120111\n"},
      {{"running", ""}, "120111\n"},      {{"Running", "stop"}, "120111\n"},
      {{"unknown", "stop"}, "120111\n"},  {{"", "stop"}, "120111\n"},
      {{"stopped", "pause"}, "120111\n"}, {StopActivityIntent(), "120111\n"},
      {{"running", "pause"}, "220111\n"}, {{"running", "stop"}, "020111\n"},
      {{"paused", "stop"}, "000111\n"},
  };
  for (const auto& [intent, states] : cases) {
    EXPECT_EQ(statesAfter(intent), states)
        << intent.value().activityId << ' ' << intent.value().operation;
  }
  fakes.files.container.reset();
  EXPECT_EQ(statesAfter({"twice", "stop"}), "000111\n");  // without a database
}

TEST_F(StopActivity, TakesTheFirstOfTheSameGuid) {
  // The latest start stands first.
  static_cast<void>(statesAfter({"twice", "pause"}));
  EXPECT_EQ(database.ask("SELECT start, finish, count(*) FROM time_intervals"),
            "1699990002.0|1700000000.0|1\n");
}

}  // namespace
}  // namespace brevant::test
