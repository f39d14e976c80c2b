// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <string>

namespace brevant {

struct SystemVersion {
  int major = 0;
  int minor = 0;

  // The check takes the 0 of the generated comparison for a pointer.
  // NOLINTNEXTLINE(modernize-use-nullptr)
  auto operator<=>(const SystemVersion&) const = default;
};

inline constexpr SystemVersion kInteractiveWidgets{17, 0};
inline constexpr SystemVersion kLiveActivities{16, 1};
inline constexpr SystemVersion kRelativeTimers{16, 0};

// What the process may know of the system that runs it. It does not change while the process lives.
class ProcessInfo {
 public:
  virtual ~ProcessInfo() = default;

  virtual SystemVersion systemVersion() const = 0;

  // As the system writes it, e.g. "16.1".
  virtual std::string systemVersionString() const = 0;

  // The process is the phone application running on a Mac.
  virtual bool isiOSAppOnMac() const = 0;
};

}  // namespace brevant
