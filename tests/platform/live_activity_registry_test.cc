// SPDX-License-Identifier: MIT
#include "platform/linux/live_activity_registry.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "platform/linux/random_source.h"
#include "tests/support/fake_platform.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using enum LiveActivityState;
using enum LiveActivityError::Kind;

const std::string kFile = "LiveActivities/activities.json";

class LiveActivityRegistryTest : public testing::Test {
 protected:
  std::unique_ptr<LiveActivityCenter> open() {
    return makeLiveActivityRegistry(folder.path, clock, *random);
  }

  const test::TemporaryFolder folder;
  test::FakeClock clock;
  const std::unique_ptr<RandomSource> random = makeRandomSource();
};

std::vector<LiveActivity> listed(const LiveActivityList& list) {
  const auto* const activities = std::get_if<std::vector<LiveActivity>>(&list);
  return activities ? *activities : std::vector<LiveActivity>{{"", kEnded, "a damaged registry"}};
}

// What went wrong; none when nothing did.
std::optional<LiveActivityError::Kind> kind(const std::optional<LiveActivityError>& error) {
  return error ? std::optional(error->kind) : std::nullopt;
}

std::string start(LiveActivityCenter& center, const std::string& contentState) {
  const auto started = center.start(contentState);
  const auto* const activity = std::get_if<StartedLiveActivity>(&started);
  return activity ? activity->id : "";
}

class LiveActivitiesContract : public LiveActivityRegistryTest,
                               public testing::WithParamInterface<bool> {
 protected:
  std::unique_ptr<LiveActivityCenter> center =
      GetParam() ? open() : std::make_unique<test::FakeLiveActivities>();
};

TEST_P(LiveActivitiesContract, ListsInTheOrderOfStartingAndNeverBringsAnEndedOneBack) {
  const std::string a = start(*center, "{}"), b = start(*center, "{}");
  EXPECT_EQ(kind(center->update(a, "{\"a\":1}")), std::nullopt);
  EXPECT_THAT(listed(center->activities()),
              ElementsAre(LiveActivity{a, kActive, "{\"a\":1}"}, LiveActivity{b, kActive, "{}"}));
  EXPECT_EQ(kind(center->end(a, DismissalPolicy::kImmediate)), std::nullopt);
  for (const std::string& id : {a, std::string("unknown")}) {
    EXPECT_EQ(kind(center->update(id, "{\"a\":2}")), kNotRunning);
    EXPECT_EQ(kind(center->end(id, DismissalPolicy::kDefault)), kNotRunning);
  }
  EXPECT_THAT(listed(center->activities()), ElementsAre(LiveActivity{b, kActive, "{}"}));
  EXPECT_THAT(listed(center->allActivities()),
              ElementsAre(LiveActivity{a, kEnded, "{\"a\":1}"}, LiveActivity{b, kActive, "{}"}));
}

TEST_P(LiveActivitiesContract, RefusesContentAboveFourKilobytes) {
  const std::string most(4096, 'x'), tooMuch(4097, 'x');
  const std::string id = start(*center, most);
  EXPECT_EQ(start(*center, tooMuch), "");
  EXPECT_EQ(kind(center->update(id, tooMuch)), kContent);
  EXPECT_THAT(listed(center->allActivities()), ElementsAre(LiveActivity{id, kActive, most}));
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, LiveActivitiesContract, testing::Bool());

TEST_F(LiveActivityRegistryTest, KeepsEndedOnesADay) {
  const auto center = open();
  const std::string id = start(*center, "{}");
  EXPECT_EQ(kind(center->end(id, DismissalPolicy::kImmediate)), std::nullopt);
  clock.time += Seconds(86399);
  EXPECT_THAT(listed(open()->allActivities()), SizeIs(1));
  clock.time += Seconds(1);
  EXPECT_THAT(listed(center->allActivities()), IsEmpty());
  start(*center, "{}");
  EXPECT_THAT(folder.read(kFile), Not(HasSubstr(id)));
}

TEST_F(LiveActivityRegistryTest, TellsOfABrokenFileAndNeverOverwritesIt) {
  const auto center = open();
  const std::string id = start(*center, "{}");
  EXPECT_EQ(start(*center, "\xFF"), "");
  const std::string whole = folder.read(kFile);
  const char* const none = "no registry";
  const std::pair<std::string, const char*> broken[] = {
      {"", none},
      {"[]", none},
      {"{\"activities\":[{\"id\":5}]}", none},
      {whole.substr(0, whole.size() / 2), none},
      {whole.substr(0, whole.find("{}")) + std::string(4097, '[') + "\",\"ended\":null}]}", none},
      {whole + std::string("\0x", 2), "NUL"},
      {std::string(100'000, '[') + std::string(100'000, ']'), "more than 64 levels"},
      {whole + std::string(std::size_t{1} << 20U, ' '), "larger than 1024 KiB"},
  };
  for (const auto& [contents, why] : broken) {
    folder.write(kFile, contents);
    const auto list = center->activities();
    ASSERT_TRUE(std::holds_alternative<LiveActivityError>(list));
    EXPECT_THAT(std::get<LiveActivityError>(list).message,
                testing::AllOf(HasSubstr(kFile), HasSubstr(why)));
    EXPECT_EQ(start(*center, "{}"), "");
    EXPECT_EQ(kind(center->end(id, DismissalPolicy::kImmediate)), kRegistry);
    EXPECT_EQ(folder.read(kFile), contents);
  }
  std::string full = "{\"activities\":[";
  const std::string state(4000, 'x');
  for (int i = 0; i < 258; ++i) {
    full +=
        (i > 0 ? "," : "") + ("{\"id\":\"i\",\"contentState\":\"" + state) + "\",\"ended\":null}";
  }
  folder.write(kFile, full += "]}");
  EXPECT_THAT(listed(center->activities()), SizeIs(258));
  const auto more = center->start("{}");
  ASSERT_TRUE(std::holds_alternative<LiveActivityError>(more));
  EXPECT_THAT(std::get<LiveActivityError>(more).message, HasSubstr("larger than 1024 KiB"));
  EXPECT_EQ(folder.read(kFile), full);
}

TEST_F(LiveActivityRegistryTest, MakesNothingForAnIdThatNobodyHas) {
  EXPECT_EQ(kind(open()->end("unknown", DismissalPolicy::kImmediate)), kNotRunning);
  EXPECT_EQ(kind(open()->update("unknown", "{}")), kNotRunning);
  EXPECT_THAT(listed(open()->activities()), IsEmpty());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

TEST_F(LiveActivityRegistryTest, LosesNothingBetweenTwoProcesses) {
  EXPECT_TRUE(test::runTogether(2, [this](int) {
    const auto center = open();
    for (int round = 0; round < 1000; ++round) {
      const std::string id = start(*center, "{}");
      if (center->update(id, "{\"a\":1}")) _exit(1);
      if (center->end(id, DismissalPolicy::kImmediate)) _exit(1);
      clock.time += Seconds(3600);
    }
  }));
  EXPECT_THAT(listed(open()->activities()), IsEmpty());
}

}  // namespace
}  // namespace brevant
