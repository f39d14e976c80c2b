// SPDX-License-Identifier: MIT
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <gmock/gmock.h>

#include "desktop/control.h"
#include "desktop/desk.h"
#include "desktop/programs.h"
#include "fake_brevant.h"

// The host with the real program on a real log.

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class RealLogTest : public testing::Test {
 protected:
  void SetUp() override {
    run({u"sample"_s, container()});
    activity_ = status()["running"_L1][0]["guid"_L1].toString();
    ASSERT_FALSE(activity_.isEmpty());
  }

  void showDesk(const ContainerModel::Options& options) {
    DrawingContext drawing;
    drawing.now = options.now;
    desk_ = std::make_unique<Desk>(options, drawing, preferences_);
    ASSERT_TRUE(waitUntil([this] { return !medium().findChildren<Control*>().isEmpty(); }));
    ASSERT_TRUE(shows(u"Programming"_s)) << qPrintable(medium().spokenText());
  }
  [[nodiscard]] ContainerModel::Options options() const {
    ContainerModel::Options options;
    options.client.program = findBrevant();
    options.client.container = container();
    options.now = [] { return 1e9; };
    return options;
  }
  [[nodiscard]] QString container() const { return folder_.filePath(u"log"_s); }
  [[nodiscard]] CardWindow& medium() { return desk_->window(WindowKind::kMedium); }
  [[nodiscard]] bool shows(const QString& name) { return medium().spokenText().startsWith(name); }

  QByteArray run(const QStringList& arguments) {
    QProcess brevant;
    brevant.start(findBrevant(), QStringList{u"--container"_s, container()} + arguments);
    brevant.waitForFinished();
    return brevant.readAllStandardOutput();
  }
  QJsonValue status() { return QJsonDocument::fromJson(run({u"status"_s, u"--json"_s})).object(); }

  QTemporaryDir folder_;
  Preferences preferences_{folder_.filePath(u"desktop.ini"_s)};
  std::unique_ptr<Desk> desk_;
  QString activity_;
};

TEST_F(RealLogTest, APausePausesInTheDatabaseAndOthersChangesAreShown) {
  showDesk(options());
  QTest::mouseClick(medium().findChildren<Control*>().first(), Qt::LeftButton);
  EXPECT_TRUE(waitUntil([this] { return !shows(u"Programming"_s); }));
  const QJsonValue after = status();
  EXPECT_EQ(after["running"_L1].toArray().size(), 0);
  EXPECT_TRUE(after["paused"_L1][0]["guid"_L1] == activity_ ||
              after["paused"_L1][1]["guid"_L1] == activity_);
  run({u"resume"_s, activity_});
  EXPECT_TRUE(waitUntil([this] { return shows(u"Programming"_s); }));
  run({u"stop"_s, activity_});
  EXPECT_TRUE(waitUntil([this] { return !shows(u"Programming"_s); }));
}

// Killed anywhere between its start and its end, it must never take the widget with it.
TEST_F(RealLogTest, ShowsTheLastGoodThroughTwoHundredKillsAtAnyMoment) {
  const QString wrapper = folder_.filePath(u"killed"_s);
  writeFile(wrapper,
            "#!/bin/sh\n[ -e ${0}.now ] && exec timeout -s $(cat ${0}.now) \"$BREVANT\" \"$@\"\n"
            "exec \"$BREVANT\" \"$@\"\n");
  QFile::setPermissions(wrapper, QFile::ReadOwner | QFile::ExeOwner);
  ContainerModel::Options withKills = options();
  withKills.client.program = wrapper;
  withKills.retry = RetryPauses(1h, 1h);
  showDesk(withKills);
  int loads = 0;
  QObject::connect(&desk_->model(), &ContainerModel::entryLoaded, [&] { ++loads; });
  // Earlier after each life, later after each kill: so the moments gather where an answer is
  // nearly done, however fast this machine is just now.
  double moment = 0.004;
  int kills = 0;
  const char* const kSignals[] = {"KILL", "SEGV", "ABRT", "TERM"};
  // Under the sanitizers, or where others are at work too, as many as there is time for.
  QElapsedTimer timer;
  timer.start();
  int round = 0;
  for (; round < 200 && !timer.hasExpired(45'000); ++round) {
    writeFile(wrapper + u".now"_s,
              QByteArray(kSignals[round % 4]) + ' ' + QByteArray::number(moment, 'f', 6));
    const int before = loads;
    desk_->model().reload();
    ASSERT_TRUE(waitUntil([&] { return loads > before; }));
    ASSERT_TRUE(shows(u"Programming"_s)) << qPrintable(medium().spokenText());
    ASSERT_TRUE(medium().isVisible());
    const bool wasKilled = !desk_->model().entryTrouble().isEmpty();
    kills += wasKilled ? 1 : 0;
    moment = std::clamp(moment * (wasKilled ? 1.4 : 0.6), 0.0005, 1.0);
  }
  EXPECT_GT(kills, 0);
  EXPECT_LT(kills, round);
  QFile::remove(wrapper + u".now"_s);
  EXPECT_TRUE(waitUntil([&] {
    desk_->model().reload();
    return medium().toolTip().isEmpty();
  }));
}

}  // namespace
}  // namespace brevant
