// SPDX-License-Identifier: MIT
#include "desktop/desk.h"

#include <QAccessible>
#include <QFileInfo>
#include <QJsonDocument>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <gmock/gmock.h>

#include "desktop/autostart.h"
#include "desktop/card_row.h"
#include "desktop/control.h"
#include "desktop/text_view.h"
#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class DeskTest : public testing::Test {
 protected:
  void SetUp() override {
    fake_.answer(u"status"_s, R"({"running":[{"guid":"A","name":"Reading"}],"paused":[]})");
  }

  void makeDesk() {
    desk_.reset();
    preferences_ = std::make_unique<Preferences>(folder_.filePath(u"desktop.ini"_s));
    DrawingContext drawing;
    drawing.now = fake_.options().now;
    desk_ = std::make_unique<Desk>(fake_.options(), drawing, *preferences_);
  }
  // A desk whose medium widget shows the running activity.
  void showDesk() {
    makeDesk();
    ASSERT_TRUE(waitUntil([this] { return medium().isVisible() && pauseButton(); }));
    letPass(20);
  }
  void showLive(const QStringList& ids) {
    QStringList list;
    for (const QString& id : ids) list << u"{\"id\":\"%1\"}"_s.arg(id);
    fake_.answer(u"live list"_s, u"[%1]"_s.arg(list.join(u',')).toUtf8());
    // Every id is shown with its own name.
    fake_.answer(u"live show"_s, presentationOf(u"@"_s, u"Live"_s));
    fake_.misbehave("[ \"$1 $2\" = 'live show' ] && { sed s/@/$3/ 'answers/live show'; exit 0; }");
    touch();
  }
  void touch() {
    writeFile(fake_.container() + u"/database.sqlite"_s, QByteArray(++touched_, 'x'));
  }

  [[nodiscard]] CardWindow& medium() { return desk_->window(WindowKind::kMedium); }
  [[nodiscard]] IslandWindow& island() {
    return dynamic_cast<IslandWindow&>(desk_->window(WindowKind::kIsland));
  }
  // The first of the card that is shown.
  [[nodiscard]] static Control* firstControl(const QWidget& window) {
    for (auto* control : window.findChildren<Control*>())
      if (control->isVisible()) return control;
    return nullptr;
  }
  // What a screen reader says.
  static QString nameRead(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
  }
  [[nodiscard]] Control* pauseButton() { return firstControl(medium()); }

  FakeBrevant fake_;
  QTemporaryDir folder_;
  std::unique_ptr<Preferences> preferences_;
  std::unique_ptr<Desk> desk_;
  int touched_ = 0;
};

TEST_F(DeskTest, APressedButtonRunsItsIntentOnceAndReadsOnce) {
  showDesk();
  fake_.misbehave("[ \"$1\" = intent ] && sleep 0.1");
  fake_.answer(u"timeline"_s, timelineOf(u"Nothing"_s));
  const auto before = fake_.calls(u"timeline"_s).size();
  for (int i = 0; i < 3; ++i) QTest::mouseClick(pauseButton(), Qt::LeftButton);
  EXPECT_EQ(pauseButton()->state(), Control::State::kBusy);
  EXPECT_TRUE(waitUntil([&] { return medium().spokenText().startsWith(u"Nothing"_s); }));
  letPass(150);
  EXPECT_EQ(fake_.calls(u"intent"_s), QStringList{u"intent StopActivityIntent A pause"_s});
  EXPECT_EQ(fake_.calls(u"timeline"_s).size(), before + 1);
  EXPECT_EQ(pauseButton()->state(), Control::State::kReady);
}

TEST_F(DeskTest, SaysWhyAnIntentDidNotWork) {
  showDesk();
  fake_.misbehave("[ \"$1\" = intent ] && { echo 'the log stayed locked' >&2; exit 1; }");
  QTest::mouseClick(pauseButton(), Qt::LeftButton);
  EXPECT_TRUE(waitUntil([&] { return says(medium(), u"the log stayed locked"_s); }));
  // The ring stays for as long, on the card that has been drawn anew since.
  const QPointer<Control> before = pauseButton();
  EXPECT_TRUE(waitUntil([&] { return !before; }));
  EXPECT_EQ(pauseButton()->state(), Control::State::kFailed);
  EXPECT_TRUE(waitUntil([&] { return pauseButton()->state() == Control::State::kReady; }));
  EXPECT_FALSE(says(medium(), u"the log stayed locked"_s));
}

TEST_F(DeskTest, MarksWhatIsOutOfDateAndTellsWhy) {
  showDesk();
  fake_.misbehave("kill -SEGV $$");
  touch();
  EXPECT_TRUE(waitUntil([&] { return !medium().toolTip().isEmpty(); }));
  EXPECT_THAT(medium().toolTip().toStdString(), testing::HasSubstr("crashed"));
  EXPECT_TRUE(medium().spokenText().startsWith(u"Reading"_s));
  EXPECT_TRUE(pauseButton());
  QApplication::setActiveWindow(nullptr);
  ASSERT_FALSE(medium().isActiveWindow());
  QTest::mouseMove(&medium(), {kCardMargin + 4, kCardMargin + 20});  // beside the controls
  EXPECT_TRUE(waitUntil([&] { return QToolTip::text() == medium().toolTip(); }));
  fake_.misbehave("");
  touch();
  EXPECT_TRUE(waitUntil([&] { return medium().toolTip().isEmpty(); }));
}

TEST_F(DeskTest, AMissingLogIsNotTakenForAnEmptyOne) {
  showDesk();
  const QString log = fake_.container() + u"/database.sqlite"_s;
  QFile::rename(log, log + u".away"_s);
  EXPECT_TRUE(waitUntil([&] { return medium().toolTip().contains(log + u" is missing"_s); }));
  EXPECT_TRUE(medium().spokenText().startsWith(u"Reading"_s));
  EXPECT_EQ(windowsOf<HostMenu>().front()->actions().front()->text(), log + u" is missing"_s);
  touch();
  EXPECT_TRUE(waitUntil([&] { return medium().toolTip().isEmpty(); }));
}

TEST_F(DeskTest, WhereNothingRunsNothingCountsAndNothingCanBePressed) {
  QByteArray nothing = timelineOf({});
  nothing.replace("\"guid\":\"A\"", "\"guid\":\"\"")
      .replace("\"activityId\":\"A\"", "\"activityId\":\"\"");
  nothing.replace("activity=A", "activity=");
  nothing.replace("[{\"view\":\"Text\"",
                  "[{\"view\":\"Text\",\"date\":999996100,\"style\":\"timer\"},{\"view\":\"Text\"");
  fake_.answer(u"timeline"_s, nothing);
  showDesk();
  EXPECT_EQ(medium().spokenText(), u"No running activity"_s);
  QStringList texts;
  for (const QWidget* each : medium().findChildren<QWidget*>())
    if (const auto* view = dynamic_cast<const TextView*>(each)) texts << view->text();
  EXPECT_THAT(texts, testing::IsSupersetOf({u"0:00"_s, u"No running activity"_s}));
  for (const auto* control : medium().findChildren<Control*>()) EXPECT_FALSE(control->isEnabled());
}

// On the card, in the menu's headline and on the tray: of one all that it took, and how many more.
TEST_F(DeskTest, TellsHowManyMoreRun) {
  fake_.answer(u"timeline"_s,
               timelineOf(u"Reading"_s).replace("\"duration\":0", "\"duration\":60"));
  fake_.answer(u"status"_s, R"({"running":[{"guid":"A","name":"Reading"},{"guid":"B","name":"Tea"},
                               {"guid":"C","name":"Music"}],"paused":[]})");
  showDesk();
  const auto hasCount = [&] {
    const auto all = medium().findChildren<QWidget*>();
    return std::any_of(all.begin(), all.end(), [](const QWidget* each) {
      const auto* view = dynamic_cast<const TextView*>(each);
      return view && view->isVisible() && view->text() == "+2"_L1;
    });
  };
  EXPECT_TRUE(waitUntil(hasCount));
  for (const auto* menu : windowsOf<HostMenu>())
    EXPECT_EQ(menu->actions().front()->text(), u"Reading, 1 hour 6 minutes +2"_s);
  fake_.answer(u"status"_s, R"({"running":[{"guid":"A","name":"Reading"}],"paused":[]})");
  touch();
  EXPECT_TRUE(waitUntil([&] { return !hasCount(); }));
}

TEST_F(DeskTest, SaysOnTheCardWhyThereNeverWasAnything) {
  fake_.misbehave("exit 2");
  makeDesk();
  EXPECT_TRUE(waitUntil([&] { return medium().isVisible(); }));
  EXPECT_THAT(medium().spokenText().toStdString(), testing::HasSubstr("code 2"));
}

TEST_F(DeskTest, APlaceholderIsNeitherToldNorWorked) {
  const QJsonValue sleep = QJsonDocument::fromJson(timelineOf(u"Sleep"_s))["entries"_L1][0];
  fake_.answer(u"placeholder"_s, QJsonDocument(sleep.toObject()).toJson());
  fake_.misbehave("[ \"$1\" = placeholder ] || { echo 'no log' >&2; exit 1; }");
  showDesk();
  QTest::mouseClick(pauseButton(), Qt::LeftButton);
  letPass(50);
  EXPECT_TRUE(fake_.calls(u"intent"_s).isEmpty());
  EXPECT_EQ(medium().spokenText(), u"no log"_s);
  QStringList headlines;
  for (const auto* menu : windowsOf<HostMenu>()) headlines << menu->actions().first()->text();
  EXPECT_EQ(headlines, QStringList({u"no log"_s, u"no log"_s}));
}

TEST_F(DeskTest, StartsAtLoginWhenThatIsChosen) {
  showDesk();
  const QString file =
      qEnvironmentVariable("XDG_CONFIG_HOME") + u"/autostart/org.brevant.Desktop.desktop"_s;
  const auto choose = [](bool wanted) {
    Q_EMIT windowsOf<HostMenu>().front()->startAtLoginToggled(wanted);
    const auto actions = windowsOf<HostMenu>().back()->actions();
    EXPECT_TRUE(std::any_of(actions.begin(), actions.end(), [&](const QAction* action) {
      return action->text() == "Start at login"_L1 && action->isChecked() == wanted;
    }));
  };
  choose(true);
  QFile entry(file);
  ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
  EXPECT_TRUE(
      entry.readAll().contains("\nExec=\"" + QFile::encodeName(qApp->applicationFilePath())));
  writeFile(file, "[Desktop Entry]\nHidden=true\n");
  EXPECT_FALSE(startsAtLogin()) << "switched off by another program";
  choose(true);
  choose(false);
  EXPECT_FALSE(QFile::exists(file));
}

// The desktop's helper is the first `xdg-open` on the path.
TEST_F(DeskTest, SaysWhenALinkDoesNotWork) {
  const QString helper = folder_.filePath(u"xdg-open"_s);
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QFile::encodeName(folder_.path()) + ':' + path);
  const auto openWith = [&](const QByteArray& script) {
    writeFile(helper, "#!/bin/sh\n" + script + '\n');
    QFile::setPermissions(helper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QTest::mouseClick(medium().findChildren<Control*>().at(1), Qt::LeftButton);
  };
  showDesk();
  openWith("echo $1 > ${0}ed");
  EXPECT_TRUE(waitUntil([&] { return QFileInfo(helper + u"ed"_s).size() == 54; }));
  letPass(50);
  EXPECT_FALSE(says(medium(), u"Nothing here opens this link"_s));
  openWith("echo 'xdg-open: no method' >&2; exit 3");
  EXPECT_TRUE(waitUntil([&] { return says(medium(), u"Nothing here opens this link"_s); }));
  QFile::remove(helper);
  qputenv("PATH", path);
}

TEST_F(DeskTest, RemembersWhichWindowsAreWantedAndWhere) {
  showDesk();
  Q_EMIT medium().moved({100, 120});
  Q_EMIT desk_->window(WindowKind::kIsland).dismissed();
  makeDesk();
  ASSERT_TRUE(waitUntil([&] { return medium().isVisible(); }));
  EXPECT_EQ(medium().pos(), QPoint(100, 120));
  EXPECT_FALSE(island().isWanted());

  // A screen that is gone must not keep a window out of sight.
  Q_EMIT medium().moved({99'999, -99'999});
  Q_EMIT medium().dismissed();
  makeDesk();
  letPass(100);
  EXPECT_FALSE(medium().isVisible());
  desk_->raise();
  ASSERT_TRUE(waitUntil([&] { return medium().isVisible(); })) << "some window has to be there";
  const QRect card = medium().geometry().marginsRemoved(kCardMargins);
  EXPECT_TRUE(medium().screen()->geometry().contains(card));
}

TEST_F(DeskTest, NamesEveryControlAndReachesItByKeyboard) {
  showLive({u"1"_s});
  showDesk();
  for (const WindowKind kind : kAllWindows) {
    desk_->window(kind).setWanted(true);
    ASSERT_TRUE(waitUntil([&] { return desk_->window(kind).isVisible(); }));
    for (const auto* control : desk_->window(kind).findChildren<Control*>()) {
      EXPECT_FALSE(control->accessibleName().isEmpty()) << qPrintable(titleOf(kind));
      EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus) << qPrintable(titleOf(kind));
    }
  }
  EXPECT_EQ(nameRead(&medium()), u"Reading, 1 hour 5 minutes"_s);
  EXPECT_EQ(nameRead(&island()), u"Live, 1 hour 5 minutes"_s);
}

// Paused and stopped by another program, while the Live Activity stays.
TEST_F(DeskTest, ALiveActivityFollowsWhatBecomesOfItsActivity) {
  showLive({u"1"_s});
  showDesk();
  ASSERT_TRUE(waitUntil([&] { return island().isVisible(); }));
  const auto becomes = [&](const QByteArray& status, const QString& spoken) {
    fake_.answer(u"status"_s, status);
    touch();
    return waitUntil([&] { return island().spokenText() == spoken; });
  };
  EXPECT_TRUE(
      becomes(R"({"running":[],"paused":[{"guid":"A","name":"Live"}]})", u"Live, Paused"_s));
  fake_.answer(u"live end"_s, "{}");
  Q_EMIT island().intentAsked({{}, u"A"_s, u"resume"_s});
  EXPECT_TRUE(waitUntil([&] { return !fake_.calls(u"live end"_s).isEmpty(); }));
  EXPECT_EQ(fake_.calls(u"resume"_s), QStringList{u"resume A"_s});
  EXPECT_EQ(fake_.calls(u"live end"_s), QStringList{u"live end 1"_s}) << "it would count the pause";
  EXPECT_TRUE(waitUntil([&] { return fake_.calls(u"live start --activity A"_s).size() == 1; }));
  EXPECT_TRUE(becomes(R"({"running":[],"paused":[]})", u"Live, Stopped"_s));
  EXPECT_TRUE(becomes(R"({"running":[{"guid":"A","name":"Live"}],"paused":[]})",
                      u"Live, 1 hour 5 minutes"_s));
}

TEST_F(DeskTest, TheKeyboardStaysAtTheControlThroughAReload) {
  showLive({u"1"_s, u"2"_s});
  showDesk();
  CardWindow& banner = desk_->window(WindowKind::kLockScreen);
  banner.setWanted(true);
  ASSERT_TRUE(waitUntil([&] { return banner.isVisible(); }));
  for (const auto& name :
       {u"StopActivityLiveIntent 1 stop"_s, u"StopActivityLiveIntent 2 stop"_s}) {
    const QPointer<Control> before = banner.findChild<Control*>(name);
    ASSERT_TRUE(before);
    before->setFocus();
    touch();
    ASSERT_TRUE(waitUntil([&] { return !before; }));
    EXPECT_EQ(banner.focusWidget()->objectName(), name);
  }
}

TEST_F(DeskTest, TheIslandOpensAndCloses) {
  showLive({u"1"_s});
  showDesk();
  ASSERT_TRUE(waitUntil([&] { return island().isVisible(); }));
  EXPECT_EQ(nameRead(island().findChild<QWidget*>(u"1"_s)), u"Live, 1 hour 5 minutes"_s);
  const QSize compact = island().size();
  EXPECT_FALSE(firstControl(island()));

  QTest::mouseClick(&island(), Qt::LeftButton, {}, island().rect().center());
  EXPECT_TRUE(island().isExpanded());
  EXPECT_GT(island().height(), compact.height());
  QTest::keyClick(&island(), Qt::Key_Escape);
  EXPECT_FALSE(island().isExpanded());
  EXPECT_EQ(island().size(), compact);
  EXPECT_EQ(island().focusWidget()->objectName(), u"1"_s) << "the keyboard is where it was";

  QTest::keyClick(island().focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(island().isExpanded());
  EXPECT_EQ(island().focusWidget(), firstControl(island()));

  showLive({u"1"_s, u"2"_s});
  const auto isPillVisible = [this](const QString& id) {
    const auto* pill = island().findChild<QWidget*>(id);
    return pill && pill->isVisible();
  };
  letPass(200);
  EXPECT_TRUE(island().isExpanded()) << "another one does not close it";
  QTest::keyClick(&island(), Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([&] { return isPillVisible(u"1"_s) && isPillVisible(u"2"_s); }));
  QTest::mouseClick(&island(), Qt::LeftButton, {},
                    island().findChild<QWidget*>(u"2"_s)->geometry().center());
  EXPECT_TRUE(island().isExpanded());

  // A click beside the controls closes; the pill that appears under the pointer stays closed.
  QTest::mouseClick(&island(), Qt::LeftButton, {}, {kCardMargin + 4, island().height() / 2});
  EXPECT_FALSE(island().isExpanded());
  const auto pointAtPill = [this] {
    QWidget* pill = island().findChild<QWidget*>(u"1"_s);
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(pill, &enter);
    letPass(500);
  };
  pointAtPill();
  EXPECT_FALSE(island().isExpanded());
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&island(), &leave);
  pointAtPill();
  EXPECT_TRUE(island().isExpanded());

  showLive({});
  EXPECT_TRUE(waitUntil([&] { return !island().isVisible(); }));
  EXPECT_FALSE(island().isExpanded());
}

}  // namespace
}  // namespace brevant
