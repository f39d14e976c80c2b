// SPDX-License-Identifier: MIT
// Whatever system call fails under a write: what the store tells of its outcome is what the file
// has.
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <unistd.h>

#include "store/fm_database.h"
#include "store/transaction.h"
#include "store/widget_dao.h"
#include "tests/support/database.h"

namespace brevant::test {
namespace {

using Outcome = TransactionEnd::Outcome;

enum class Fault { kOnce, kForGood };

// Which of the coming calls of SQLite fail.
struct Faults {
  int callsUntil = 0;  // 0: none fails
  Fault fault = Fault::kOnce;

  bool isDue() {
    if (callsUntil == 0) return false;
    if (callsUntil > 1) {
      --callsUntil;
      return false;
    }
    if (fault == Fault::kOnce) callsUntil = 0;
    reached = true;
    errno = EIO;
    return true;
  }
  bool reached = false;
};
Faults faults;

int failingFcntl(int file, int command, void* argument) {
  return faults.isDue() ? -1 : fcntl(file, command, argument);
}
ssize_t failingPread(int file, void* bytes, size_t size, off64_t at) {
  return faults.isDue() ? -1 : pread64(file, bytes, size, at);
}
ssize_t failingPwrite(int file, const void* bytes, size_t size, off64_t at) {
  return faults.isDue() ? -1 : pwrite64(file, bytes, size, at);
}
int failingUnlink(const char* path) {
  return faults.isDue() ? -1 : unlink(path);
}
int failingTruncate(int file, off_t size) {
  return faults.isDue() ? -1 : ftruncate(file, size);
}

struct Call {
  const char* name;
  sqlite3_syscall_ptr failing;
};
const Call kCalls[] = {{"fcntl", reinterpret_cast<sqlite3_syscall_ptr>(failingFcntl)},
                       {"pread64", reinterpret_cast<sqlite3_syscall_ptr>(failingPread)},
                       {"pwrite64", reinterpret_cast<sqlite3_syscall_ptr>(failingPwrite)},
                       {"unlink", reinterpret_cast<sqlite3_syscall_ptr>(failingUnlink)},
                       {"ftruncate", reinterpret_cast<sqlite3_syscall_ptr>(failingTruncate)}};

// The journal mode, and whether the activity that is paused is running; a paused one looks the same
// before and after but for the time of the change.
class ToldIsStored : public testing::TestWithParam<std::tuple<const char*, bool>> {
 protected:
  ToldIsStored() {
    fakes.clock.monotonicTick = 0.5;  // whoever waits gives up soon
    file.run("INSERT INTO logs (guid, start_date, state, category_guid) VALUES ('a', " +
             std::string(isRunning ? "50, 1" : "NULL, 2") +
             ", 'c'); PRAGMA journal_mode = " + mode);
    std::filesystem::copy_file(file.path, original);
  }

  // Pauses the activity as every door does, and answers what was told.
  std::optional<Outcome> pause() {
    std::optional<Outcome> told;
    WidgetDAO dao(fakes.platform(), file.path, [&](const StoreEvent& event) {
      if (const auto* end = std::get_if<TransactionEnd>(&event)) told = end->outcome;
    });
    Transaction transaction(dao);
    if (transaction.isOpen()) {
      for (const ActivityRef& activity : dao.findActivities()) {
        activity->state = kStatePaused;
        activity->start.reset();
        activity->updatedOn = 1'700'000'000;
        if (isRunning) activity->intervals->push_back(std::make_shared<WidgetInterval>());
        dao.update(*activity);
      }
    }
    transaction.commit();
    return told;
  }

  std::string contents() const {
    return file.ask("PRAGMA integrity_check; SELECT state, start_date, updated_on FROM logs") +
           file.ask("SELECT count(*) FROM time_intervals");
  }

  void restore() {
    for (const char* const suffix : {"", "-journal", "-wal", "-shm"}) {
      std::filesystem::remove(file.path + suffix);
    }
    std::filesystem::copy_file(original, file.path);
  }

  const std::string mode = std::get<0>(GetParam());
  const bool isRunning = std::get<1>(GetParam());
  FakePlatform fakes;
  TestDatabase file{fakes};
  const std::filesystem::path original = file.folder / "original";
};

TEST_P(ToldIsStored, WhicheverCallFails) {
  sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
  const std::string before = contents();
  std::map<Outcome, int> told;
  for (const Call& call : kCalls) {
    // A lock in shared memory that cannot be had is taken for another's, for ten seconds each time.
    if (mode == "WAL" && call.name == std::string("fcntl")) continue;
    for (const Fault fault : {Fault::kOnce, Fault::kForGood}) {
      for (int number = 1;; ++number) {
        SCOPED_TRACE(std::string(call.name) + " call " + std::to_string(number) +
                     (fault == Fault::kOnce ? " once" : " for good"));
        restore();
        system->xSetSystemCall(system, call.name, call.failing);
        faults = {number, fault};
        const std::optional<Outcome> outcome = pause();
        system->xSetSystemCall(system, call.name, nullptr);
        const bool isStored = contents() != before;
        ASSERT_EQ(outcome == Outcome::kStored, isStored);
        ASSERT_THAT(contents(), testing::StartsWith("ok\n"));
        if (fault == Fault::kOnce) {
          ASSERT_NE(outcome, Outcome::kUnknown);
        }
        if (!faults.reached) break;
        if (outcome) ++told[*outcome];
      }
    }
  }
  EXPECT_GT(told[Outcome::kNotStored], 2);
  if (mode != "WAL") {
    EXPECT_GT(told[Outcome::kStored], 0);  // the lock could not be given back
  }
}

INSTANTIATE_TEST_SUITE_P(JournalModes, ToldIsStored,
                         testing::Combine(testing::Values("DELETE", "PERSIST", "WAL"),
                                          testing::Bool()));

}  // namespace
}  // namespace brevant::test
