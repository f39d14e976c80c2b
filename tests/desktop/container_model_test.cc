// SPDX-License-Identifier: MIT
#include "desktop/container_model.h"

#include <QJsonObject>
#include <gmock/gmock.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class ContainerModelTest : public testing::Test {
 protected:
  void make(const ContainerModel::Options& options) {
    model_ = std::make_unique<ContainerModel>(options);
    QObject::connect(model_.get(), &ContainerModel::entryLoaded, [this] { ++loads_; });
  }
  void load() {
    const int before = loads_;
    model_->reload();
    ASSERT_TRUE(waitUntil([&] { return loads_ > before; }));
  }
  [[nodiscard]] QString name() const { return model_->entry()["name"_L1].toString(); }

  FakeBrevant fake_;
  std::unique_ptr<ContainerModel> model_;
  int loads_ = 0;
};

TEST_F(ContainerModelTest, KeepsTheLastGoodAnswerThroughTwoHundredFailures) {
  const QByteArray kFailures[] = {
      "kill -SEGV $$",
      "kill -KILL $$",
      "echo 'Fatal error: it broke' >&2; kill -ABRT $$",
      "exit 1",
      "exit 2",
      "exit 0",
      "echo '{\"entries\":[{\"views\":'; exit 0",
      "echo '{\"entries\":[{\"views\":'; kill -TERM $$",
      "echo null; exit 0",
      "echo 42; exit 0",
      "echo '{\"kind\":\"running_widget\",\"policy\":\"atEnd\",\"entries\":[]}'; exit 0",
      "echo '{\"entries\":[{\"views\":{\"systemSmall\":1,\"systemMedium\":[]}}]}'; exit 0",
      "head -c 9999 /dev/zero | tr '\\0' '['; exit 0",
      "head -c 9999 /dev/urandom; exit 0",
      "cat answers/timeline; kill -SEGV $$",
      "exec sleep 60",
  };
  ContainerModel::Options options = fake_.options();
  options.client.patience = 250ms;
  make(options);
  load();
  ASSERT_EQ(model_->entryTrouble(), QString());
  for (std::size_t round = 0; round < 200; ++round) {
    const QByteArray& failure = kFailures[round % std::size(kFailures)];
    fake_.misbehave(failure);
    load();
    ASSERT_EQ(name(), u"Reading"_s) << failure.constData();
    ASSERT_NE(model_->entryTrouble(), QString()) << failure.constData();
  }
  fake_.misbehave("");
  fake_.answer(u"timeline"_s, timelineOf(u"Sport"_s));
  ASSERT_TRUE(waitUntil([&] {
    load();
    return name() == u"Sport"_s;
  }));
  EXPECT_EQ(model_->entryTrouble(), QString());
}

TEST_F(ContainerModelTest, TriesAgainByItself) {
  ContainerModel::Options options = fake_.options();
  options.retry = RetryPauses(10ms, 40ms);
  fake_.misbehave("exit 2");
  make(options);
  load();
  EXPECT_TRUE(waitUntil([&] { return fake_.calls(u"timeline"_s).size() >= 4; }));
  fake_.misbehave("");
  EXPECT_TRUE(waitUntil([&] { return model_->entryTrouble().isEmpty(); }));
  EXPECT_EQ(name(), u"Reading"_s);
}

TEST(RetryPauses, DoubleUpToTheLongestAndBeginAnew) {
  RetryPauses pauses(1s, 5s);
  for (const auto expected : {1s, 2s, 4s, 5s, 5s}) EXPECT_EQ(pauses.next(), expected);
  pauses.reset();
  EXPECT_EQ(pauses.next(), 1s);
}

TEST_F(ContainerModelTest, RunsAnActionOnceAndReadsOnceAfterIt) {
  make(fake_.options());
  load();
  // The action writes for longer than the watcher waits, as a slow disk would.
  fake_.misbehave(
      "[ \"$1\" = pause ] && { echo 1 > container/database.sqlite; sleep 0.1;"
      " echo 22 > container/database.sqlite; }");
  const auto before = fake_.calls(u"timeline"_s).size();
  QString failure = u"not told"_s;
  EXPECT_TRUE(model_->run({u"pause"_s, u"A"_s}, [&](const QString& why) { failure = why; }));
  EXPECT_FALSE(model_->run({u"pause"_s, u"A"_s}, [](const QString&) { FAIL(); }));
  EXPECT_TRUE(waitUntil([&] { return fake_.calls(u"timeline"_s).size() > before; }));
  letPass(200);
  EXPECT_EQ(failure, QString());
  EXPECT_EQ(fake_.calls(u"pause"_s), QStringList{u"pause A"_s});
  EXPECT_EQ(fake_.calls(u"timeline"_s).size(), before + 1);
  EXPECT_TRUE(model_->run({u"stop"_s}, [](const QString&) {})) << "free again afterwards";
  EXPECT_TRUE(waitUntil([&] { return fake_.calls(u"timeline"_s).size() > before + 1; }));
}

// While one answer is awaited several wishes to read again become one.
TEST_F(ContainerModelTest, AsksOnceMoreHoweverOftenItIsTold) {
  make(fake_.options());
  for (int i = 0; i < 5; ++i) model_->reload();
  EXPECT_TRUE(waitUntil([&] { return loads_ == 2; }));
  letPass(100);
  EXPECT_EQ(fake_.calls(u"timeline"_s).size(), 2);
}

TEST_F(ContainerModelTest, ListsLiveActivitiesWithoutThoseThatJustEnded) {
  fake_.answer(u"live list"_s, R"([{"id":"1"},{"id":"gone"},{"id":"2"}])");
  fake_.answer(u"live show"_s, presentationOf(u"1"_s, u"Reading"_s));
  fake_.misbehave("[ \"$3\" = gone ] && exit 1");
  make(fake_.options());
  model_->reload();
  EXPECT_TRUE(waitUntil([&] { return model_->liveActivities().size() == 2; }));
  fake_.misbehave("[ \"$3\" = 2 ] && exit 2");
  model_->reload();
  EXPECT_TRUE(waitUntil([&] { return !model_->liveTrouble().isEmpty(); }));
  EXPECT_EQ(model_->liveActivities().size(), 2);
}

}  // namespace
}  // namespace brevant
