// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

namespace brevant {

// A local date and time of day. `weekday` counts 1 = Sunday to 7 = Saturday and is ignored when a
// date is made from components.
struct DateComponents {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int weekday = 5;

  bool operator==(const DateComponents&) const = default;
};

// The user's current calendar (Gregorian) in the current time zone. Thread-safe and without
// failure: dates beyond the calendar's years are clamped to its ends.
class Calendar {
 public:
  virtual ~Calendar() = default;

  // Fractions of a second are cut off (toward the earlier second).
  virtual DateComponents components(Date date) const = 0;

  // Components outside their range carry over (minute 75 is 1:15 later). Where a local time occurs
  // twice the first is meant; where it does not exist, the first instant after the gap.
  virtual Date date(const DateComponents& components) const = 0;

  // The same time of day that many days later, fractions of a second kept. A day may have 23 or 25
  // hours.
  virtual Date addingDays(Date date, int days) const = 0;
};

}  // namespace brevant
