// SPDX-License-Identifier: MIT

// Times and durations for people.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/calendar.h"

namespace brevant {

// Whole seconds as 1:02:03.
std::string durationText(std::uint64_t seconds);

// "10:41", or with its day ("2023-11-14 22:13") when that is not the day of `now`.
std::string timeText(const std::optional<Date>& date, Date now, const Calendar& calendar);

// "2023-11-14 22:13:20".
std::string dateText(Date date, const Calendar& calendar);

}  // namespace brevant
