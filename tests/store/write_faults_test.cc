// SPDX-License-Identifier: MIT

// What a write leaves behind when it cannot be completed: the database as it was or as it should
// be, nothing between, and the change flag never without the change.
#include <csignal>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <sys/resource.h>

#include "store/fm_database.h"
#include "store/widget_dao.h"
#include "tests/support/database.h"
#include "tests/support/processes.h"
#include "tests/support/replaced_services.h"

namespace brevant::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Its flag outlives the process.
struct FileSettings : FakeSettings {
  SaveOutcome synchronize() override {
    return std::ofstream(flag) ? SaveOutcome{} : notSaved("no flag");
  }

  std::filesystem::path flag;
};

// Does something when the first line comes.
struct ReactingLog : FakeLog {
  void write(std::string_view line) override {
    FakeLog::write(line);
    if (atFirstLine) std::exchange(atFirstLine, nullptr)();
  }

  std::function<void()> atFirstLine;
};

class WriteFaultsTest : public testing::Test {
 protected:
  WriteFaultsTest() {
    fakes.clock.monotonicTick = 0.5;
    settings.flag = file.folder / "flag";
    file.run(
        "INSERT INTO logs (guid, start_date, state, category_guid) VALUES ('a', 50, 1, 'c');"
        "INSERT INTO time_intervals (guid, start, finish, log_guid) VALUES ('i', 1, 2, 'a')");
  }

  Platform platform() { return replaced(fakes.platform(), {.settings = &settings, .log = &log}); }

  // Pauses the activity: one row changed, one rewritten, one new.
  void pause() {
    WidgetDAO dao(platform(), file.path);
    pause(dao);
  }
  void pause(WidgetDAO& dao) {
    WidgetActivity activity;
    activity.guid = "a";
    activity.state = kStatePaused;
    activity.categoryGuid = "c";
    activity.intervals = IntervalList{std::make_shared<WidgetInterval>(), created};
    activity.intervals->front()->guid = "i";
    dao.update(activity);
  }

  std::string contents() const {
    return file.ask("PRAGMA integrity_check; SELECT * FROM logs") +
           file.ask("SELECT * FROM time_intervals");
  }
  bool isFlagRaised() const { return std::filesystem::exists(settings.flag); }

  FakePlatform fakes;
  TestDatabase file{fakes};
  FileSettings settings;
  ReactingLog log;
  std::shared_ptr<WidgetInterval> created = std::make_shared<WidgetInterval>();
};

TEST_F(WriteFaultsTest, AMissingTableUndoesTheWholeWrite) {
  file.run("DROP TABLE time_intervals");
  const std::string before = file.bytes();
  {
    WidgetDAO dao(platform(), file.path);
    pause(dao);
    EXPECT_EQ(file.ask("SELECT start_date, state FROM logs"), "50.0|1\n");  // no lock is left
  }
  EXPECT_EQ(file.bytes(), before);
  EXPECT_FALSE(isFlagRaised());
  EXPECT_EQ(created->guid->size(), 36U);
  const std::string error = "DB Error: 1 \"no such table: time_intervals\"";
  const std::string path = "DB Path: " + file.path;
  EXPECT_THAT(log.lines, ElementsAre(error, StartsWith("DB Query: UPDATE time_intervals"), path,
                                     error, StartsWith("DB Query: INSERT INTO time_int"), path));
}

// On a full disk SQLite undoes the transaction by itself; later statements would be on their own.
TEST_F(WriteFaultsTest, AFailureThatEndsTheTransactionEndsTheWrite) {
  const std::string before = contents();
  const auto fails = [this](const std::string& event, const auto& write) {
    file.run("CREATE TRIGGER t BEFORE UPDATE ON " + event +
             " BEGIN SELECT RAISE(ROLLBACK, 'x'); END");
    write();
    file.run("DROP TRIGGER t");
  };
  WidgetActivity activity;
  activity.guid = "a";
  fails("logs", [this] { pause(); });
  fails("time_intervals", [&] { WidgetDAO(platform(), file.path).removeLogSilently(activity); });
  EXPECT_EQ(contents(), before);
  EXPECT_FALSE(isFlagRaised());
  EXPECT_THAT(log.lines, Each(Not(HasSubstr("INSERT"))));
}

TEST_F(WriteFaultsTest, AFileThatStaysLockedIsLeftAlone) {
  const std::string before = file.bytes();
  {
    const FileLock lock(file);
    pause();
  }
  EXPECT_EQ(file.bytes(), before);
  EXPECT_FALSE(isFlagRaised());
  EXPECT_EQ(created->guid->size(), 36U);
}

// The statements of a transaction that could not begin would each be stored by itself.
TEST_F(WriteFaultsTest, AFileThatIsFreeTooLateIsLeftAlone) {
  const std::string before = file.bytes();
  {
    WidgetDAO dao(platform(), file.path);
    ASSERT_EQ(dao.findActivities().size(), 1U);  // the schema is known; only the lock is in the way
    FileLock lock(file);
    log.atFirstLine = [&] { lock.release(); };
    pause(dao);
  }
  EXPECT_EQ(file.bytes(), before);
  EXPECT_FALSE(isFlagRaised());
  EXPECT_THAT(log.lines, Contains(HasSubstr("(5: database is locked)")));
}

TEST_F(WriteFaultsTest, AReadOnlyFileIsLeftAlone) {
  const std::string before = file.bytes();
  std::filesystem::permissions(file.path, std::filesystem::perms(0444));
  std::filesystem::permissions(file.folder, std::filesystem::perms(0555));
  const uid_t user = geteuid();
  if (user == 0) {  // to whom nothing is read-only
    std::filesystem::permissions(file.folder, std::filesystem::perms(0755));
    ASSERT_EQ(seteuid(65534), 0);
  }
  pause();
  ASSERT_EQ(seteuid(user), 0);
  std::filesystem::permissions(file.folder, std::filesystem::perms(0755));
  EXPECT_EQ(file.bytes(), before);
  EXPECT_FALSE(isFlagRaised());
  EXPECT_THAT(log.lines, Contains(HasSubstr("(8: attempt to write a readonly database)")));
}

// Writing stops at every size that a file can have, in the journal as in the database.
TEST_F(WriteFaultsTest, AFullDiskUndoesTheWholeWrite) {
  file.run("UPDATE logs SET comment = hex(zeroblob(6000))");
  const std::string original = file.bytes();
  const std::string before = contents();
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit normal{};
  getrlimit(RLIMIT_FSIZE, &normal);
  int undone = 0;
  for (rlim_t size = 0; !isFlagRaised(); size += 1000) {
    ASSERT_LT(size, 10 * original.size());
    const rlimit limit{size, normal.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    pause();
    setrlimit(RLIMIT_FSIZE, &normal);
    if (isFlagRaised()) break;
    ASSERT_EQ(contents(), before) << "full at " << size;
    ++undone;
  }
  EXPECT_GT(undone, 5);
  EXPECT_NE(contents(), before);
}

class KilledWriteTest : public WriteFaultsTest, public testing::WithParamInterface<const char*> {};

TEST_P(KilledWriteTest, LeavesTheDatabaseAsBeforeOrAsAfter) {
  file.run(std::string("PRAGMA journal_mode = ") + GetParam());
  const std::string before = contents();
  const auto original = file.folder / "original";
  std::filesystem::copy_file(file.path, original);
  std::map<std::string, int> outcomes;
  for (int call = 1;; ++call) {
    const End end = runKilledAt(call, [this] { pause(); });
    if (end == End::kUntraceable) GTEST_SKIP() << "this system lets nobody trace a process";
    const bool flag = isFlagRaised();
    const std::string left = contents();
    ASSERT_TRUE(!flag || left != before) << "killed at call " << call;
    ++outcomes[left];
    if (end == End::kFinished) {
      EXPECT_TRUE(flag);
      break;
    }
    for (const char* const suffix : {"", "-journal", "-wal", "-shm"}) {
      std::filesystem::remove(file.path + suffix);
    }
    std::filesystem::remove(settings.flag);
    std::filesystem::copy_file(original, file.path);
  }
  EXPECT_EQ(outcomes.size(), 2U);  // the new rows have the same guid each time
  EXPECT_GT(outcomes[before], 20);
  for (const auto& [left, count] : outcomes) EXPECT_THAT(left, StartsWith("ok\n"));
}

INSTANTIATE_TEST_SUITE_P(JournalModes, KilledWriteTest, testing::Values("DELETE", "WAL"));

}  // namespace
}  // namespace brevant::test
