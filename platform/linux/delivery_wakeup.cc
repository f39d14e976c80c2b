// SPDX-License-Identifier: MIT
#include "platform/linux/delivery_wakeup.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

namespace brevant {
namespace {

constexpr const char* kZoneFolder = "/etc";
constexpr std::string_view kZoneFile = "localtime";
constexpr std::uint32_t kFileChanges = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_TO;

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

void stopTimer(const Descriptor& timer) {
  const itimerspec never{};
  timerfd_settime(timer.number(), 0, &never, nullptr);
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

DeliveryWakeup::DeliveryWakeup(std::string requests)
    : requests_(std::move(requests)),
      changes_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)),
      timer_(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      clock_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {
  const sigset_t signals = endSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signals_ = Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  expectClockChange(clock_);
  zoneWatch_ = inotify_add_watch(changes_.number(), kZoneFolder, kFileChanges);
}

DeliveryWakeup::~DeliveryWakeup() {
  const sigset_t signals = endSignals();
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

void DeliveryWakeup::watch() {
  const std::string folder = std::filesystem::path(requests_).parent_path();
  folderWatch_ = inotify_add_watch(changes_.number(), folder.c_str(), kFileChanges);
}

// Whether any of the changes since the last call matters. Most do not: the locks beside the
// requests are opened each time, and much else lies where the zone does.
bool DeliveryWakeup::sawChange() {
  const std::string name = std::filesystem::path(requests_).filename();
  alignas(inotify_event) std::array<char, 4096> buffer;
  bool matters = false;
  ssize_t size = 0;
  while ((size = read(changes_.number(), buffer.data(), buffer.size())) > 0) {
    for (ssize_t at = 0; at < size;) {
      inotify_event event;
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const char* const changed = buffer.data() + at + sizeof event;
      matters = matters || (event.mask & (IN_Q_OVERFLOW | IN_IGNORED)) != 0 ||
                (event.len > 0 && event.wd == folderWatch_ && changed == name) ||
                (event.len > 0 && event.wd == zoneWatch_ && changed == kZoneFile);
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
  return matters;
}

bool DeliveryWakeup::sleep(std::optional<Seconds> delay, int descriptor) {
  const bool getsNews = changes_ && folderWatch_ >= 0;
  if (delay || !getsNews) {
    const double most = getsNews ? kAtMost : kWithoutNews;
    startTimer(timer_, std::clamp(delay ? delay->count() : most, kAtLeast, most));
  } else {
    stopTimer(timer_);
  }
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
    if (changed || isReadable(timer) || isReadable(clock) || isReadable(others)) return true;
  }
}

}  // namespace brevant
