// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/date.h"
#include "platform/platform.h"
#include "platform/property_value.h"

namespace brevant {

// Keeps the pending reminders those that the settings, the categories and what runs ask for, for as
// long as a process stays. What the user cancels stays cancelled until one of these changes.
class ReminderSchedule {
 public:
  explicit ReminderSchedule(const Platform& platform) : platform_(platform) {}

  // Schedules anew the first time, when anything that reminders depend on is another, and when the
  // last of them has come. Answers after what time it is to be called again at the latest.
  Seconds keep();

 private:
  // What the pending reminders were made of.
  struct Basis {
    bool enabled = false;
    PropertyDictionary settings;
    std::vector<std::string> running;
    std::string body;

    bool operator==(const Basis&) const = default;
  };

  [[nodiscard]] std::optional<Basis> basis() const;
  bool schedule(const Basis& current);

  const Platform platform_;
  std::optional<Basis> last_;
  Date until_{};
  std::string told_;  // what went wrong last
};

}  // namespace brevant
