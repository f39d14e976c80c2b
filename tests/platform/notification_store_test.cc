// SPDX-License-Identifier: MIT
#include "platform/linux/notification_store.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/support/fake_platform.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace brevant {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kFile = "Notifications/requests.json";

NotificationRequest request(const std::string& identifier, int minute = 0) {
  return {identifier,
          {"Remind", "Sleep \"☃\"\n", {{"type", "notify"}, {"", ""}}, "default"},
          {{2024, 2, 29, 23, minute, 59}, false}};
}

const auto kUnheard = [](const SaveOutcome&) {};

std::vector<NotificationRequest> pending(UserNotificationCenter& center) {
  std::vector<NotificationRequest> result;
  center.pendingRequests([&](const auto& requests) { result = requests; }, kUnheard);
  for (NotificationRequest& each : result) each.added.reset();
  return result;
}

std::string add(UserNotificationCenter& center, const NotificationRequest& added) {
  std::string problem = "not called";
  center.add(added, [&](const SaveOutcome& outcome) { problem = outcome.why; });
  return problem;
}

class NotificationStoreTest : public testing::Test {
 protected:
  std::unique_ptr<UserNotificationCenter> open() {
    return makeNotificationStore(folder.path, clock);
  }

  const test::TemporaryFolder folder;
  test::FakeClock clock;
};

class NotificationCenterContract : public NotificationStoreTest,
                                   public testing::WithParamInterface<bool> {
 protected:
  std::unique_ptr<UserNotificationCenter> center =
      GetParam() ? open() : std::make_unique<test::FakeNotificationCenter>();
};

TEST_P(NotificationCenterContract, KeepsRequestsInTheOrderTheyWereAdded) {
  EXPECT_THAT(pending(*center), IsEmpty());
  for (const char* const each : {"a", "b", "c"}) EXPECT_EQ(add(*center, request(each)), "");
  EXPECT_THAT(pending(*center), ElementsAre(request("a"), request("b"), request("c")));
  EXPECT_EQ(add(*center, request("a", 5)), "");
  center->removePendingRequests({"c", "unknown"});
  EXPECT_THAT(pending(*center), ElementsAre(request("b"), request("a", 5)));
}

TEST_P(NotificationCenterContract, LetsItsHandlersCallBackIn) {
  add(*center, request("a"));
  const auto handler = [&](const auto& requests) {
    center->removePendingRequests({requests.at(0).identifier});
    center->add(request("b"), [&](const auto&) { add(*center, request("c")); });
  };
  center->pendingRequests(handler, [&](const SaveOutcome& outcome) {
    EXPECT_EQ(outcome, SaveOutcome());
    add(*center, request("d"));
  });
  EXPECT_THAT(pending(*center), ElementsAre(request("b"), request("c"), request("d")));
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, NotificationCenterContract, testing::Bool());

TEST_F(NotificationStoreTest, KeepsInstantsAndMakesANameText) {
  NotificationRequest added = request("a");
  added.trigger.instant = dateFromSeconds(1709247599.25);
  added.content.body = "\xFF";
  clock.time += Seconds(0.125);
  EXPECT_EQ(add(*open(), added), "");
  added.added = clock.time;
  added.content.body = "\xEF\xBF\xBD";
  open()->pendingRequests([&](const auto& read) { EXPECT_THAT(read, ElementsAre(added)); },
                          kUnheard);
}

TEST_F(NotificationStoreTest, NeverOverwritesABrokenFileAndSaysWhatItIs) {
  const char* const none = "no list of notification requests";
  const std::string empty = "{\"requests\":[]}";
  const std::pair<std::string, const char*> broken[] = {
      {"", none},
      {"{\"requests\":5", none},
      {"{\"requests\":[{}]}", none},
      {"{\"requests\":[{\"identifier\":\"a\",\"trigger\":[]}]}", none},
      {empty + std::string("\0x", 2), "NUL"},
      {std::string(100'000, '[') + std::string(100'000, ']'), "more than 64 levels"},
      {empty + std::string(std::size_t{1} << 20U, ' '), "larger than 1024 KiB"},
  };
  for (const auto& [contents, why] : broken) {
    const auto center = open();
    folder.write(kFile, contents);
    const auto isWhy = AllOf(HasSubstr(kFile), HasSubstr(why));
    center->pendingRequests([](const auto&) { FAIL() << "nothing is known of what is pending"; },
                            [&](const auto& outcome) { EXPECT_THAT(outcome.why, isWhy); });
    EXPECT_THAT(add(*center, request("a")), isWhy);
    center->removePendingRequests({"a"});
    EXPECT_TRUE(folder.read(kFile) == contents);
  }
}

TEST_F(NotificationStoreTest, LosesNothingBetweenTwoProcesses) {
  EXPECT_TRUE(test::runTogether(2, [this](int process) {
    const auto center = open();
    const std::string prefix = std::to_string(process) + "-";
    for (int round = 0; round < 1000; ++round) {
      if (!add(*center, request(prefix + std::to_string(round))).empty()) _exit(1);
      center->removePendingRequests({prefix + std::to_string(round - 1)});
    }
  }));
  std::set<std::string> left;
  for (const NotificationRequest& each : pending(*open())) left.insert(each.identifier);
  EXPECT_THAT(left, ElementsAre("0-999", "1-999"));
}

// Replaces all that is pending by twelve others, as scheduling does.
void replaceAll(UserNotificationCenter& center) {
  const auto handler = [&](const auto& requests) {
    std::vector<std::string> identifiers;
    for (const auto& each : requests) identifiers.push_back(each.identifier);
    center.removePendingRequests(identifiers);
    for (int i = 0; i < 12; ++i) {
      center.add(request(std::to_string(getpid()) + '-' + std::to_string(i)), kUnheard);
    }
  };
  center.pendingRequests(handler, kUnheard);
}

TEST_F(NotificationStoreTest, WhatAHandlerDoesIsOneChange) {
  EXPECT_TRUE(test::runTogether(4, [this](int) { replaceAll(*open()); }));
  EXPECT_THAT(pending(*open()), SizeIs(12));

  const std::string before = folder.read(kFile);
  bool isOld = false, isNew = false;
  for (int call = 1;; ++call) {
    folder.write(kFile, before);
    const test::End end = test::runKilledAt(call, [this] { replaceAll(*open()); });
    if (end == test::End::kUntraceable) GTEST_SKIP() << "this system lets nobody trace a process";
    EXPECT_THAT(pending(*open()), SizeIs(12));
    (folder.read(kFile) == before ? isOld : isNew) = true;
    if (end == test::End::kFinished) break;
  }
  EXPECT_TRUE(isOld && isNew);
}

}  // namespace
}  // namespace brevant
