// SPDX-License-Identifier: MIT
#include "platform/linux/delivery_wakeup.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace brevant {
namespace {

constexpr const char* kZone = "/etc/localtime";
constexpr std::uint32_t kReplaced = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_TO;
constexpr std::uint32_t kWritten = IN_MODIFY | IN_MOVED_TO;

// What changes once often changes again in the next moment.
constexpr std::chrono::milliseconds kUntilQuiet{50};

// For how long to sleep at most where the system does not tell of changes.
constexpr double kWithoutNews = 10;
constexpr double kAtLeast = 0.001;  // nothing would stop the timer
constexpr double kAtMost = 1e9;
constexpr std::time_t kFarFuture = 9'000'000'000;  // the year 2255

sigset_t endSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  return signals;
}

void startTimer(const Descriptor& timer, double seconds) {
  itimerspec time{};
  time.it_value.tv_sec = static_cast<std::time_t>(seconds);
  time.it_value.tv_nsec =
      static_cast<long>((seconds - static_cast<double>(time.it_value.tv_sec)) * 1e9);
  timerfd_settime(timer.number(), 0, &time, nullptr);
}

// A timer in the far future that nobody waits for; the system cancels it when the clock is set.
void expectClockChange(const Descriptor& clock) {
  itimerspec time{};
  time.it_value.tv_sec = kFarFuture;
  timerfd_settime(clock.number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr);
}

bool isReadable(const pollfd& entry) {
  return entry.revents != 0;
}

}  // namespace

DeliveryWakeup::DeliveryWakeup(std::vector<WatchedFile> files)
    : files_(std::move(files)),
      changes_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)),
      timer_(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      clock_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {
  const sigset_t signals = endSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signals_ = Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  expectClockChange(clock_);
  files_.push_back({kZone, WatchedFile::Written::kAtOnce});
}

DeliveryWakeup::~DeliveryWakeup() {
  const sigset_t signals = endSignals();
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

void DeliveryWakeup::watch() {
  namespace fs = std::filesystem;
  places_.clear();
  getsNews_ = static_cast<bool>(changes_);
  std::error_code error;
  for (const WatchedFile& file : files_) {
    const bool isReplaced = file.written == WatchedFile::Written::kAtOnce;
    fs::path path = file.path;
    std::uint32_t changes = isReplaced ? kReplaced : kWritten;
    while (!fs::is_directory(path.parent_path(), error) && path.parent_path() != path) {
      path = path.parent_path();
      changes = kReplaced;
    }
    const int folder =
        inotify_add_watch(changes_.number(), path.parent_path().c_str(), kReplaced | kWritten);
    places_.push_back({folder, path.filename(), changes});
    getsNews_ = getsNews_ && folder >= 0;
  }
}

bool DeliveryWakeup::concernsUs(const inotify_event& event, const std::string& name) const {
  if ((event.mask & (IN_Q_OVERFLOW | IN_IGNORED)) != 0) return true;
  return std::any_of(places_.begin(), places_.end(), [&](const Place& each) {
    return event.wd == each.folder && (event.mask & each.changes) != 0 && !name.empty() &&
           name == each.name;
  });
}

// Whether any of the changes since the last call matters. Most do not: the locks beside the
// requests are opened each time, and much else lies where the zone does.
bool DeliveryWakeup::sawChange() {
  alignas(inotify_event) std::array<char, 4096> buffer;
  bool matters = false;
  ssize_t size = 0;
  while ((size = read(changes_.number(), buffer.data(), buffer.size())) > 0) {
    for (ssize_t at = 0; at < size;) {
      inotify_event event;
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const char* const changed = buffer.data() + at + sizeof event;
      at += static_cast<ssize_t>(sizeof event + event.len);
      matters = matters || concernsUs(event, event.len > 0 ? changed : "");
    }
  }
  return matters;
}

bool DeliveryWakeup::sleep(Seconds delay, int descriptor) {
  startTimer(timer_, std::clamp(delay.count(), kAtLeast, getsNews_ ? kAtMost : kWithoutNews));
  while (true) {
    std::array<pollfd, 5> waits{{{signals_.number(), POLLIN, 0},
                                 {changes_.number(), POLLIN, 0},
                                 {timer_.number(), POLLIN, 0},
                                 {clock_.number(), POLLIN, 0},
                                 {descriptor, POLLIN, 0}}};
    if (poll(waits.data(), waits.size(), -1) < 0) continue;
    const auto& [signals, changes, timer, clock, others] = waits;
    signalfd_siginfo received;
    if (isReadable(signals) && read(signals.fd, &received, sizeof received) > 0) return false;
    if (isReadable(clock)) expectClockChange(clock_);
    const bool changed = isReadable(changes) && sawChange();
    if (changed) {
      std::this_thread::sleep_for(kUntilQuiet);
      sawChange();
    }
    if (changed || isReadable(timer) || isReadable(clock) || isReadable(others)) return true;
  }
}

}  // namespace brevant
