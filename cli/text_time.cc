// SPDX-License-Identifier: MIT
#include "cli/text_time.h"

#include <array>
#include <cstdio>

namespace brevant {
namespace {

std::string twoDigits(std::uint64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string dayText(const DateComponents& at) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", at.year, at.month, at.day);
  return text.data();
}

std::string clockText(const DateComponents& at) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d", at.hour, at.minute);
  return text.data();
}

}  // namespace

std::string durationText(std::uint64_t seconds) {
  return std::to_string(seconds / 3600) + ':' + twoDigits(seconds / 60 % 60) + ':' +
         twoDigits(seconds % 60);
}

std::string timeText(const std::optional<Date>& date, Date now, const Calendar& calendar) {
  if (!date) return "";
  const DateComponents at = calendar.components(*date);
  const std::string day = dayText(at);
  return day == dayText(calendar.components(now)) ? clockText(at) : day + ' ' + clockText(at);
}

std::string dateText(Date date, const Calendar& calendar) {
  const DateComponents at = calendar.components(date);
  return dayText(at) + ' ' + clockText(at) + ':' + twoDigits(static_cast<std::uint64_t>(at.second));
}

}  // namespace brevant
