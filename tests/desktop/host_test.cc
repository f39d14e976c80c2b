#include "desktop/host.h"

#include <QApplication>
#include <QFileDialog>
#include <QProcess>
#include <QSignalSpy>
#include <algorithm>
#include <gmock/gmock.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

class HostTest : public testing::Test {
 protected:
  // `brevant-desktop --do pause`; what it says on stderr comes after its exit code.
  QString pause() {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"BREVANT"_s, fake_.program());
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + u"/brevant-desktop"_s,
                  {u"--container"_s, fake_.container(), u"--do"_s, u"pause"_s});
    process.waitForFinished();
    return QString::number(process.exitCode()) + u' ' + QString::fromUtf8(process.readAll());
  }

  FakeBrevant fake_;
};

TEST_F(HostTest, AnActionIsDoneAndAnsweredWhateverTheHostIsAt) {
  EXPECT_EQ(pause(), u"0 "_s) << "without a host";
  const auto host = SingleInstance::claim(fake_.container());
  ASSERT_TRUE(host);
  QSignalSpy words(host.get(), &SingleInstance::told);
  EXPECT_EQ(pause(), u"0 "_s);
  EXPECT_EQ(fake_.calls(u"pause"_s).size(), 2);
  fake_.misbehave("echo 'nothing runs' >&2; exit 1");
  EXPECT_EQ(pause(), u"1 brevant-desktop: nothing runs\n"_s);
  ASSERT_TRUE(waitUntil([&] { return !words.isEmpty(); }));
  EXPECT_EQ(words.first().first().toByteArray(), "say nothing runs") << "people look there";
}

TEST_F(HostTest, TheWelcomeAsksForAFolderOnceAndSaysWhatItIsTold) {
  Options options;
  options.forBrevant = QStringList{u"--container"_s, fake_.container()};
  Host host(options);
  ASSERT_TRUE(host.start());
  StartWindow* welcome = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* found = qobject_cast<StartWindow*>(window)) welcome = found;
  ASSERT_TRUE(welcome);
  for (int i = 0; i < 3; ++i) Q_EMIT welcome->folderAsked();
  int dialogs = 0;
  for (const QWidget* window : QApplication::topLevelWidgets())
    dialogs += qobject_cast<const QFileDialog*>(window) ? 1 : 0;
  EXPECT_EQ(dialogs, 1);

  SingleInstance::tell(fake_.container(), "say nothing runs");
  EXPECT_TRUE(waitUntil([&] {
    const auto labels = welcome->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [](const QLabel* label) { return label->text() == u"nothing runs"_s; });
  }));
}

}  // namespace
}  // namespace brevant
