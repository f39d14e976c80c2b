#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gmock/gmock.h>

#include "desktop/control.h"
#include "desktop/desk.h"
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
TEST_F(RealLogTest, ShowsTheLastGoodThroughKillsAtAnyMoment) {
  const QString wrapper = folder_.filePath(u"killed"_s);
  writeFile(wrapper,
            "#!/bin/sh\n[ -e ${0}.now ] && exec timeout -s $(cat ${0}.now) \"$BREVANT\" \"$@\"\n"
            "exec \"$BREVANT\" \"$@\"\n");
  QFile::setPermissions(wrapper, QFile::ReadOwner | QFile::ExeOwner);
  ContainerModel::Options withKills = options();
  withKills.client.program = wrapper;
  showDesk(withKills);
  int loads = 0, troubles = 0;
  QObject::connect(&desk_->model(), &ContainerModel::entryLoaded, [&] {
    ++loads;
    if (!desk_->model().entryTrouble().isEmpty()) ++troubles;
  });
  for (int round = 0; round < 40; ++round) {
    const char* signal = round % 2 == 0 ? "KILL" : "SEGV";
    writeFile(wrapper + u".now"_s, QByteArray(signal) + " 0.0" + QByteArray::number(round / 4));
    const int before = loads;
    desk_->model().reload();
    ASSERT_TRUE(waitUntil([&] { return loads > before; }));
    ASSERT_TRUE(shows(u"Programming"_s)) << qPrintable(medium().spokenText());
  }
  EXPECT_GT(troubles, 0);
  QFile::remove(wrapper + u".now"_s);
  desk_->model().reload();
  EXPECT_TRUE(waitUntil([&] { return medium().toolTip().isEmpty(); }));
}

}  // namespace
}  // namespace brevant
