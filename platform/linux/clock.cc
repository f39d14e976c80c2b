// SPDX-License-Identifier: MIT
#include "platform/linux/clock.h"

#include <ctime>

namespace brevant {
namespace {

double seconds(clockid_t id) {
  timespec time{};
  clock_gettime(id, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

class LinuxClock : public Clock {
 public:
  explicit LinuxClock(std::optional<double> standingAt) : standingAt_(standingAt) {}

  Date now() const override {
    return dateFromSeconds(standingAt_.value_or(seconds(CLOCK_REALTIME)));
  }

  // The coarse clock is read without a system call and in a few nanoseconds, so that a settings
  // read can ask it each time. Its steps of at most 10 ms matter to nobody.
  double monotonicSeconds() const override { return seconds(CLOCK_MONOTONIC_COARSE); }

 private:
  const std::optional<double> standingAt_;
};

}  // namespace

std::unique_ptr<Clock> makeClock(std::optional<double> standingAt) {
  return std::make_unique<LinuxClock>(standingAt);
}

}  // namespace brevant
