// SPDX-License-Identifier: MIT
#include "platform/linux/file_lock.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/timerfd.h>

#include "platform/linux/file_owner.h"

namespace brevant {
namespace {

constexpr time_t kLongestWait = 2;  // seconds
// Short beside what holders do: one that comes again and again leaves gaps of a fraction of a
// millisecond, and a waiter must meet one of them.
constexpr timespec kPause{0, 250'000};
constexpr mode_t kOwnerOnly = 0600;

// Nobody is told when a lock comes free, so it is tried until a timer has run out.
bool lockedInTime(int file) {
  const Descriptor timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC));
  const itimerspec end{{}, {kLongestWait, 0}};
  if (!timer || timerfd_settime(timer.number(), 0, &end, nullptr) != 0) return false;
  while (flock(file, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    pollfd waits{timer.number(), POLLIN, 0};
    if (ppoll(&waits, 1, &kPause, nullptr) > 0) {
      errno = EWOULDBLOCK;
      return false;
    }
  }
  return true;
}

bool isFile(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// A lock that is there is never made anew, so that only its maker gives it away.
Descriptor openLock(const std::string& path) {
  constexpr int kFlags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
  Descriptor made(open(path.c_str(), kFlags | O_CREAT | O_EXCL, kOwnerOnly));
  if (made) {
    giveToOwnerOfFolder(made.number(), path);
    return made;
  }
  return errno == EEXIST ? Descriptor(open(path.c_str(), kFlags)) : Descriptor();
}

}  // namespace

FileLock::FileLock(const std::string& path) : file_(openLock(path)) {
  std::string why;
  if (!file_) {
    why = std::strerror(errno);
  } else if (!isFile(file_.number())) {
    why = "this is no file";
  } else if (!lockedInTime(file_.number())) {
    busy_ = errno == EWOULDBLOCK;
    why = busy_ ? "another program holds the lock" : std::strerror(errno);
  }
  if (why.empty()) return;
  file_ = Descriptor();
  problem_ = path + ": cannot be locked: " + why;
}

}  // namespace brevant
