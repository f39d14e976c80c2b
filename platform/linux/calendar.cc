// SPDX-License-Identifier: MIT
#include "platform/linux/calendar.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

namespace brevant {
namespace {

using std::chrono::sys_days;
using namespace std::chrono_literals;  // NOLINT(google-build-using-namespace)

using LocalSeconds = std::time_t;  // seconds since 1970-01-01 00:00 by the local clock

constexpr std::time_t kDay = 86400;
constexpr std::time_t kFirst = sys_days(-32767y / 1 / 2).time_since_epoch() / 1s;
constexpr std::time_t kLast = sys_days(32767y / 12 / 31).time_since_epoch() / 1s;

std::time_t clamped(double seconds) {
  if (!(seconds > static_cast<double>(kFirst))) return kFirst;
  return seconds < static_cast<double>(kLast) ? static_cast<std::time_t>(seconds) : kLast;
}

std::tm localTime(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

std::time_t offset(std::time_t time) {
  return localTime(time).tm_gmtoff;
}

LocalSeconds localSeconds(const DateComponents& c, int moreDays) {
  const std::time_t months = std::time_t{c.year} * 12 + c.month - 1;
  const auto year = static_cast<int>(
      std::clamp<std::time_t>(months >= 0 ? months / 12 : (months - 11) / 12, -32767, 32767));
  const auto month = static_cast<unsigned>((months % 12 + 12) % 12) + 1;
  const sys_days first(std::chrono::year(year) / std::chrono::month(month) / 1);
  const std::time_t days = first.time_since_epoch().count() + std::time_t{c.day} - 1 + moreDays;
  return days * kDay + std::time_t{c.hour} * 3600 + std::time_t{c.minute} * 60 + c.second;
}

// The first instant after the jump between `before` and `after`, which have different offsets.
std::time_t instantOfChange(std::time_t before, std::time_t after) {
  const std::time_t old = offset(before);
  while (after - before > 1) {
    const std::time_t middle = before + (after - before) / 2;
    (offset(middle) == old ? before : after) = middle;
  }
  return after;
}

std::time_t instant(LocalSeconds local) {
  // No zone changes its offset twice within two days, so one of the two offsets around is meant.
  const std::time_t earlierOffset = offset(local - kDay);
  const std::time_t laterOffset = offset(local + kDay);
  const std::time_t byEarlier = local - earlierOffset;
  if (offset(byEarlier) == earlierOffset) return byEarlier;  // also the first of two
  const std::time_t byLater = local - laterOffset;
  if (offset(byLater) == laterOffset) return byLater;
  return instantOfChange(byLater, byEarlier);  // a local time that does not exist
}

// The C library's zone rules: they know every form of $TZ, need none of the hundreds of look-ups
// with which a zone database library starts, and go on after the last change that a zone file
// lists.
class LinuxCalendar : public Calendar {
 public:
  LinuxCalendar() { tzset(); }

  DateComponents components(Date date) const override {
    const std::tm local = localTime(clamped(std::floor(secondsSince1970(date))));
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,    local.tm_hour,
            local.tm_min,         local.tm_sec,     local.tm_wday + 1};
  }

  Date date(const DateComponents& components) const override { return dateAt(components, 0); }

  Date addingDays(Date date, int days) const override {
    const double seconds = secondsSince1970(date);
    return dateAt(components(date), days) + Seconds(seconds - std::floor(seconds));
  }

 private:
  static Date dateAt(const DateComponents& components, int moreDays) {
    const auto local = static_cast<double>(localSeconds(components, moreDays));
    return dateFromSeconds(static_cast<double>(instant(clamped(local))));
  }
};

}  // namespace

std::unique_ptr<Calendar> makeCalendar() {
  return std::make_unique<LinuxCalendar>();
}

std::optional<Date> secondDate(const DateComponents& components) {
  const LocalSeconds local = clamped(static_cast<double>(localSeconds(components, 0)));
  const std::time_t laterOffset = offset(local + kDay);
  const std::time_t last = local - laterOffset;
  if (offset(last) != laterOffset || last <= instant(local)) return std::nullopt;
  return dateFromSeconds(static_cast<double>(last));
}

}  // namespace brevant
