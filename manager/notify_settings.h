// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/property_value.h"

namespace brevant {

class Bundle;

// When the user wants to be asked "What are you doing now?", as the main application stores it.
struct NotifySettings {
  // Without a stored dictionary: off, every 30 minutes of the hours 8 to 21.
  explicit NotifySettings(const PropertyDictionary* stored);

  // What the main application would store; the older form of the hours is never written.
  [[nodiscard]] PropertyDictionary dictionary() const;

  // "Every 30 minutes", in the user's language.
  [[nodiscard]] std::string description(const Bundle& bundle) const;

  // Whether a reminder may fall in that hour (0 to 23) of that weekday (0 = Monday to 6 = Sunday).
  [[nodiscard]] bool includes(std::size_t hour, std::size_t weekday) const;

  // The table of 24 hours by 7 weekdays from a list of hours. The list counts from 1: its number 9
  // turns on the row of hour 8.
  static PropertyValue buildForOldHours(const PropertyValue& hours);

  bool enabled = false;
  std::int32_t minutes = 0;  // from one reminder to the next
  std::int32_t type = 0;     // one of the codes below; any other reminds always

  // Rows by hour, each with a flag per weekday. As it was stored: any shape is possible, and what
  // is not there counts as off.
  std::optional<PropertyValue> includeHours;
};

inline constexpr std::int32_t kRemindWhileRunning = 1;
inline constexpr std::int32_t kRemindWhileNothingRuns = 2;

}  // namespace brevant
