// SPDX-License-Identifier: MIT
#include "desktop/container_watcher.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gmock/gmock.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class ContainerWatcherTest : public testing::Test {
 protected:
  void SetUp() override {
    write("database.sqlite", "one");
    write("Library/Preferences/group.brevant.plist", "settings");
    watch();
  }

  void watch() {
    watcher_ = std::make_unique<ContainerWatcher>(container(), 20ms);
    QObject::connect(watcher_.get(), &ContainerWatcher::changed, [this] { ++changes_; });
  }

  [[nodiscard]] QString container() const { return folder_.filePath(u"a/b"_s); }
  [[nodiscard]] QString path(const char* name) const {
    return container() + u'/' + QString::fromUtf8(name);
  }
  void write(const char* name, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path(name)).path());
    writeFile(path(name), content);
  }
  // As careful programs write: aside first, then over the old file.
  void replace(const char* name, const QByteArray& content) {
    write("aside", content);
    QDir().mkpath(QFileInfo(path(name)).path());
    ASSERT_EQ(::rename(qPrintable(path("aside")), qPrintable(path(name))), 0);
  }
  void append(const char* name) {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("more");
  }
  void expectChange(const char* what, const std::function<void()>& change) {
    changes_ = 0;
    change();
    EXPECT_TRUE(waitUntil([this] { return changes_ > 0; })) << what;
    letPass(60);
  }
  void expectQuiet(const char* what, const std::function<void()>& change) {
    letPass(60);
    changes_ = 0;
    change();
    letPass(150);
    EXPECT_EQ(changes_, 0) << what;
  }

  QTemporaryDir folder_;
  std::unique_ptr<ContainerWatcher> watcher_;
  int changes_ = 0;
};

TEST_F(ContainerWatcherTest, SeesEveryWayToChange) {
  // Each twice: a watch that was lost by the first is missed by the second.
  for (int round = 0; round < 2; ++round) {
    expectChange("appended to", [&] { append("database.sqlite"); });
    expectChange("replaced", [&] { replace("database.sqlite", "another"); });
    expectChange("written after replacement", [&] { append("database.sqlite"); });
    expectChange("journal", [&] { write("database.sqlite-journal", "pages"); });
    expectChange("journal removed", [&] { QFile::remove(path("database.sqlite-journal")); });
    expectChange("write-ahead log", [&] { write("database.sqlite-wal", "frames"); });
    expectChange("log grows", [&] { append("database.sqlite-wal"); });
    expectChange("log removed", [&] { QFile::remove(path("database.sqlite-wal")); });
    expectChange("settings replaced",
                 [&] { replace("Library/Preferences/group.brevant.plist", "new"); });
    expectChange("registry", [&] { write("LiveActivities/1.json", "{}"); });
    expectChange("in the registry", [&] { append("LiveActivities/1.json"); });
    expectChange("registry emptied", [&] { QFile::remove(path("LiveActivities/1.json")); });
    expectChange("container replaced", [&] {
      ASSERT_TRUE(QDir().rename(container(), folder_.filePath(u"a/old%1"_s.arg(round))));
      write("database.sqlite", "restored");
    });
  }
}

TEST_F(ContainerWatcherTest, SeesAContainerThatAppearsLater) {
  watcher_.reset();
  ASSERT_TRUE(QDir(folder_.filePath(u"a"_s)).removeRecursively());
  watch();
  expectChange("made", [&] { write("database.sqlite", "one"); });
  expectChange("written", [&] { append("database.sqlite"); });
  expectChange("settings made", [&] { write("Library/Preferences/group.brevant.plist", "s"); });
  expectChange("settings written", [&] { append("Library/Preferences/group.brevant.plist"); });
}

// A reader of the database leaves such traces; taking them for changes would never end.
TEST_F(ContainerWatcherTest, IsNotFooledByReaders) {
  expectQuiet("read", [&] {
    QFile file(path("database.sqlite"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    file.readAll();
  });
  expectQuiet("shared memory and an empty log, made and removed", [&] {
    write("database.sqlite-shm", "index");
    write("database.sqlite-wal", "");
    letPass(40);
    QFile::remove(path("database.sqlite-shm"));
    QFile::remove(path("database.sqlite-wal"));
  });
  expectQuiet("another file", [&] { write("notes.txt", "x"); });
}

TEST_F(ContainerWatcherTest, TellsBurstsOnceAndNotWhatWasSeen) {
  expectQuiet("seen before it was told", [&] {
    append("database.sqlite");
    watcher_->markSeen();
  });
  expectChange("a burst", [&] {
    for (int i = 0; i < 50; ++i) append("database.sqlite");
  });
  EXPECT_EQ(changes_, 1);
}

}  // namespace
}  // namespace brevant
