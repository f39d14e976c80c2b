// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>
#include <optional>

namespace brevant {

// The ways in which a text shows a date.
enum class TimerStyle {
  kTimer,     // 0:05, 12:34, 1:02:03, 100:00:00
  kRelative,  // "2 hr, 5 min": the two largest units
  kTime,      // the date's time of day; it does not advance
};

[[nodiscard]] std::optional<TimerStyle> timerStyleFromName(const QString& name);

// What a text with that date and style reads at `now`, in the locale's language and digits. A date
// in the future counts down to zero. Both are seconds since 1970; a time of day is that of the
// process's time zone.
[[nodiscard]] QString timerText(TimerStyle style, double date, double now, const QLocale& locale);

// Seconds from `now` until the text next changes: at most one.
[[nodiscard]] double secondsUntilNextTick(double date, double now);

}  // namespace brevant
