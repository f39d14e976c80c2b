// SPDX-License-Identifier: MIT
#include "desktop/brevant_client.h"

#include <QDir>
#include <gmock/gmock.h>

#include "desktop/reminders_child.h"
#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using Outcome = Answer::Outcome;

Answer askOnce(const BrevantClient::Options& options) {
  BrevantClient client(options);
  std::optional<Answer> answer;
  client.ask({u"timeline"_s}, &client, [&](const Answer& given) { answer = given; });
  EXPECT_FALSE(answer) << "answered from within the call";
  EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
  return answer.value_or(Answer{});
}

TEST(BrevantClient, TellsApartWaysToEnd) {
  const struct {
    const char* behaviour;
    Outcome outcome;
    const char* error;
  } kCases[] = {
      {"echo '{\"a\":1}'; exit 0", Outcome::kDone, ""},
      {"echo null; exit 0", Outcome::kDone, ""},
      {"echo noise >&2; echo 'brevant: no such activity' >&2; exit 1", Outcome::kNotDone,
       "no such activity"},
      {"exit 1", Outcome::kNotDone, "not done"},
      {"exit 2", Outcome::kFailed, "code 2"},
      {"echo 'Fatal error: no icon' >&2; kill -ABRT $$", Outcome::kFailed, "Fatal error: no icon"},
      {"kill -SEGV $$", Outcome::kFailed, "crashed"},
      {"echo '{\"a\":1}'; kill -KILL $$", Outcome::kFailed, "crashed"},
      {"exit 0", Outcome::kFailed, "cannot be used"},
      {"echo '{\"a\":'; exit 0", Outcome::kFailed, "cannot be used"},
      {"echo '{}{}'; exit 0", Outcome::kFailed, "cannot be used"},
      {"echo '{},{}'; exit 0", Outcome::kFailed, "cannot be used"},
      {"head -c 5000 /dev/zero | tr '\\0' '['; exit 0", Outcome::kFailed, "cannot be used"},
      {"printf '\\377\\376'; exit 0", Outcome::kFailed, "cannot be used"},
      {"exec cat /dev/zero", Outcome::kFailed, "without end"},
  };
  FakeBrevant fake;
  for (const auto& [behaviour, outcome, error] : kCases) {
    fake.misbehave(behaviour);
    const Answer answer = askOnce(fake.options().client);
    EXPECT_EQ(answer.outcome, outcome) << behaviour;
    EXPECT_THAT(answer.error.toStdString(), testing::HasSubstr(error)) << behaviour;
    EXPECT_EQ(answer.error.isEmpty(), outcome == Outcome::kDone) << behaviour;
  }
}

TEST(BrevantClient, KillsWhatHangs) {
  FakeBrevant fake;
  BrevantClient::Options options = fake.options().client;
  options.patience = 200ms;
  for (const char* behaviour : {"exec sleep 60", "trap '' TERM; while :; do :; done",
                                "echo '{}'; exec >&-; exec sleep 60"}) {
    fake.misbehave(behaviour);
    const Answer answer = askOnce(options);
    EXPECT_EQ(answer.outcome, Outcome::kFailed) << behaviour;
    EXPECT_THAT(answer.error.toStdString(), testing::HasSubstr("in time")) << behaviour;
  }
}

// Asked again for days, a program that is gone or damaged must not use up the descriptors.
TEST(BrevantClient, SurvivesAProgramThatCannotBeStarted) {
  FakeBrevant fake;
  BrevantClient::Options plain = fake.options().client, missing = plain, nameless = plain;
  plain.program = fake.container() + u"/plain"_s;
  writeFile(plain.program, "#!/bin/sh\n");
  missing.program = fake.container() + u"/missing"_s;
  nameless.program = u"no-such-program-on-the-path"_s;
  const auto descriptors = [] {
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
  };
  for (const auto& options : {plain, missing, nameless}) {
    const RemindersChild child(options, RetryPauses(1ms, 1ms));
    askOnce(options);
    const auto before = descriptors();
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(askOnce(options).error, options.program + u" could not be started"_s);
    letPass(20);
    EXPECT_EQ(descriptors(), before) << options.program.toStdString();
  }
}

TEST(BrevantClient, SaysNothingToThoseWhoAreGone) {
  FakeBrevant fake;
  BrevantClient client(fake.options().client);
  auto receiver = std::make_unique<QObject>();
  bool told = false, done = false;
  client.ask({u"timeline"_s}, receiver.get(), [&](const Answer&) { told = true; });
  client.ask({u"status"_s}, &client, [&](const Answer&) { done = true; });
  receiver.reset();
  EXPECT_TRUE(waitUntil([&] { return done && fake.calls(u"timeline"_s).size() == 1; }));
  letPass(50);
  EXPECT_FALSE(told);
}

// Whoever is told may let go of the client at once.
TEST(BrevantClient, MayBeDeletedByAnAnswer) {
  FakeBrevant fake;
  auto client = std::make_unique<BrevantClient>(fake.options().client);
  client->ask({u"timeline"_s}, client.get(), [&](const Answer&) { client.reset(); });
  EXPECT_TRUE(waitUntil([&] { return !client; }));
}

}  // namespace
}  // namespace brevant
