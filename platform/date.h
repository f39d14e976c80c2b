// SPDX-License-Identifier: MIT

// Points in time with the precision of a double, as the database and the JSON keep them.
#pragma once

#include <chrono>
#include <cstdint>

namespace brevant {

using Seconds = std::chrono::duration<double>;
using Date = std::chrono::sys_time<Seconds>;

constexpr Date dateFromSeconds(double secondsSince1970) {
  return Date(Seconds(secondsSince1970));
}

constexpr double secondsSince1970(Date date) {
  return date.time_since_epoch().count();
}

// 2001-01-01 00:00 UTC, from which property lists and content states count, in seconds since 1970.
inline constexpr double kReferenceDate = 978307200.0;

// A point in time that counts from there. Counting it from 1970 rounds, so that what is passed on
// to others as it came stays one; what is shown becomes a `Date`.
struct ReferenceClock {
  using duration = Seconds;
};
using ReferenceDate = std::chrono::time_point<ReferenceClock>;

constexpr double secondsSince2001(ReferenceDate date) {
  return date.time_since_epoch().count();
}

constexpr Date dateOf(ReferenceDate date) {
  return dateFromSeconds(kReferenceDate + secondsSince2001(date));
}

// Truncates toward zero and saturates: NaN and anything below zero give 0, anything beyond 64 bits
// the largest value.
constexpr std::uint64_t wholeSeconds(double seconds) {
  constexpr double kBeyond = 18446744073709551616.0;  // 2^64
  if (!(seconds > 0)) return 0;
  return seconds >= kBeyond ? UINT64_MAX : static_cast<std::uint64_t>(seconds);
}

// Of whole seconds: the largest value where 64 bits do not hold the sum.
constexpr std::uint64_t saturatingSum(std::uint64_t a, std::uint64_t b) {
  return a > UINT64_MAX - b ? UINT64_MAX : a + b;
}

}  // namespace brevant
