// SPDX-License-Identifier: MIT
#include "live/stop_activity_live_intent.h"

#include <gtest/gtest.h>

#include "live/activity_attribute.h"
#include "tests/support/database.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

const ReferenceDate kStart(Seconds(1000.5 - kReferenceDate));

class StopActivityLive : public testing::Test {
 protected:
  StopActivityLive() {
    database.run(
        "INSERT INTO logs (guid, start_date, state, category_guid) VALUES ('A', 1699990000, 1, "
        "'C')");
    start("other");
    static_cast<void>(fakes.liveActivities.start("no content state"));
    start("A");
    start("A");
  }

  void start(const std::string& guid) {
    const ContentState state{guid, "Reading", "cat_7", 255, kStart, "-"};
    static_cast<void>(fakes.liveActivities.start(*state.encoded(fakes.coder)));
  }

  void perform(const StopActivityLiveIntent& intent) {
    intent.perform(fakes.platform());
    fakes.tasks.waitUntilIdle();
  }

  // The message of each Live Activity, of those that ended in brackets.
  std::string messages() {
    std::string text;
    for (const LiveActivity& each : fakes.liveActivities.all) {
      const auto decoded = ContentState::decoded(fakes.coder, each.contentState);
      const auto* state = std::get_if<ContentState>(&decoded);
      const std::string message = state ? state->message : "?";
      text += each.state == LiveActivityState::kEnded ? "[" + message + "] " : message + " ";
    }
    return text;
  }
  std::string state() const { return database.ask("SELECT state FROM logs"); }

  FakePlatform fakes;
  TestDatabase database{fakes};
};

TEST_F(StopActivityLive, ChangesTheActivityAndTakesTheFirstOfItsLiveActivitiesDown) {
  const std::tuple<StopActivityLiveIntent, const char*, const char*> cases[] = {
      {{"A", "Stop"}, "- ? [Stop] - ", "1\n"},        // no operation, yet the end
      {{"unknown", "stop"}, "- ? [Stop] - ", "1\n"},  // nobody's
      {StopActivityLiveIntent(), "- ? [Stop] - ", "1\n"},
      {{"A", "pause"}, "- ? [Stop] [pause] ", "2\n"},
      {{"A", "stop"}, "- ? [Stop] [pause] ", "0\n"},           // has no Live Activity any more
      {{"other", "stop"}, "[stop] ? [Stop] [pause] ", "0\n"},  // not in the database
  };
  for (const auto& [intent, expected, stateAfter] : cases) {
    perform(intent);
    EXPECT_EQ(messages(), expected) << intent.value().activityId << intent.value().operation;
    EXPECT_EQ(state(), stateAfter);
  }
}

TEST_F(StopActivityLive, StopsTheActivityAllTheSameWhenTheRegistryIsDamaged) {
  fakes.liveActivities.damage = LiveActivityError{LiveActivityError::Kind::kRegistry, "damaged"};
  perform({"A", "stop"});
  EXPECT_EQ(state(), "0\n");
  EXPECT_EQ(fakes.log.lines.front(), "damaged");
}

TEST_F(StopActivityLive, UpdatesNothingButTheMessage) {
  perform({"A", "pause"});
  const ContentState expected{"A", "Reading", "cat_7", 255, kStart, "pause"};
  EXPECT_EQ(fakes.liveActivities.all[2].contentState, expected.encoded(fakes.coder));
}

// Nobody waits for the tasks, and an update that comes late finds nothing to bring back.
TEST_F(StopActivityLive, LeavesUpdateAndEndToTwoTasksOfNoOrder) {
  StopActivityLiveIntent("A", "stop").perform(fakes.platform());
  EXPECT_EQ(state(), "0\n");
  EXPECT_EQ(messages(), "- ? - - ");
  EXPECT_EQ(fakes.tasks.tasks.size(), 2U);
  fakes.tasks.runReversed();
  EXPECT_EQ(messages(), "- ? [-] - ");
}

}  // namespace
}  // namespace brevant::test
