// SPDX-License-Identifier: MIT
#include "desktop/host.h"

#include <QFile>
#include <QFileDialog>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

#include "fake_brevant.h"
#include "private_bus.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(HostTest, AnActionIsDoneAndAnsweredWhateverTheHostIsAt) {
  FakeBrevant fake;
  const QStringList pause{u"--container"_s, fake.container(), u"--do"_s, u"pause"_s};
  EXPECT_EQ(fake.runHost(pause).exitCode, 0) << "without a host";
  const auto host = SingleInstance::claim(fake.container());
  ASSERT_TRUE(host);
  QSignalSpy words(host.get(), &SingleInstance::told);
  EXPECT_EQ(fake.runHost(pause).exitCode, 0);
  EXPECT_EQ(fake.calls(u"pause"_s).size(), 2);
  fake.misbehave("echo 'nothing runs' >&2; exit 1");
  const auto failed = fake.runHost(pause);
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.error, u"brevant-desktop: nothing runs\n"_s);
  ASSERT_TRUE(waitUntil([&] { return !words.isEmpty(); }));
  EXPECT_EQ(words.first().first().toByteArray(), "say nothing runs") << "people look there";
}

// With the log that was chosen in the host, and nobody there to see what is printed.
TEST(HostTest, ALinkIsFollowedInTheChosenLogAndItsFailureShown) {
  FakeBrevant fake;
  PrivateBus desktop(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s);
  desktop.reply = 1u;
  const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("DBUS_SESSION_BUS_ADDRESS", desktop.address().toUtf8());
  Preferences(Preferences::defaultFile()).setContainer(fake.container());
  const QStringList open{u"--open"_s, u"brevant:///widget?a=<b>"_s};
  EXPECT_EQ(fake.runHost(open).exitCode, 0);
  EXPECT_EQ(fake.calls(u"open"_s), QStringList{u"open -- brevant:///widget?a=<b>"_s});
  EXPECT_TRUE(desktop.calls().empty());

  fake.misbehave("echo \"brevant: $container has no <b>\" >&2; exit 1");
  EXPECT_EQ(fake.runHost(open).exitCode, 1);
  ASSERT_EQ(desktop.calls().size(), 1U);
  EXPECT_EQ(desktop.calls().front().value(4), fake.container() + u" has no &lt;b&gt;"_s);
  Preferences(Preferences::defaultFile()).setContainer({});
  qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
}

TEST(HostTest, TheWelcomeAsksForAFolderOnceAndSaysWhatItIsTold) {
  const FakeBrevant fake;
  QFile::remove(fake.container() + u"/database.sqlite"_s);
  Options options;
  options.forBrevant = QStringList{u"--container"_s, fake.container()};
  Host host(options);
  ASSERT_TRUE(host.start());
  ASSERT_EQ(windowsOf<StartWindow>().size(), 1);
  StartWindow* welcome = windowsOf<StartWindow>().front();
  for (int i = 0; i < 3; ++i) Q_EMIT welcome->folderAsked();
  EXPECT_EQ(windowsOf<QFileDialog>().size(), 1);

  const int height = welcome->height();
  SingleInstance::tell(fake.container(), "say " + QByteArray(30, 'm') + " " + QByteArray(30, 'n'));
  EXPECT_TRUE(waitUntil([&] { return welcome->height() > height; })) << "there is room for it";
  QSignalSpy sample(welcome, &StartWindow::sampleAsked), closed(welcome, &StartWindow::closed);
  QTest::keyClick(welcome, Qt::Key_Return);
  EXPECT_EQ(sample.size(), 1);
  QTest::keyClick(welcome, Qt::Key_Escape);
  EXPECT_EQ(closed.size(), 1);
}

}  // namespace
}  // namespace brevant
