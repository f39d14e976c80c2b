// SPDX-License-Identifier: MIT
#include "desktop/timer_text.h"

#include <QDateTime>
#include <algorithm>
#include <array>
#include <cmath>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Two sums of seconds that should be equal may differ by the last bits of a double.
constexpr double kRounding = 1e-6;
// Far beyond every date that means something, and safe to count in integers.
constexpr double kFarAway = 1e12;

qint64 wholeSecondsBetween(double date, double now) {
  const double elapsed = std::clamp(now - date, -kFarAway, kFarAway);
  return std::abs(static_cast<qint64>(std::floor(elapsed + kRounding)));
}

QString twoDigits(qint64 number) {
  return QString::number(number).rightJustified(2, u'0');
}

QString inDigitsOf(const QLocale& locale, QString text) {
  const QChar zero = locale.zeroDigit().front();
  for (QChar& c : text) {
    if (c >= u'0' && c <= u'9') c = QChar(zero.unicode() + c.digitValue());
  }
  return text;
}

QString clockText(qint64 seconds) {
  const qint64 hours = seconds / 3600;
  const QString minutes = QString::number(seconds / 60 % 60);
  if (hours == 0) return minutes + u':' + twoDigits(seconds % 60);
  return QString::number(hours) + u':' + twoDigits(seconds / 60 % 60) + u':' +
         twoDigits(seconds % 60);
}

// How a language abbreviates the units; %1 is the number. A day has no abbreviation everywhere, so
// one and several of them may differ.
struct UnitWords {
  QLocale::Language language;
  const char16_t *day, *days, *hour, *minute, *second, *separator;
};

constexpr std::array kUnitWords = {
    UnitWords{QLocale::English, u"%1 day", u"%1 days", u"%1 hr", u"%1 min", u"%1 sec", u", "},
    UnitWords{QLocale::German, u"%1 Tag", u"%1 Tage", u"%1 Std.", u"%1 Min.", u"%1 Sek.", u", "},
    UnitWords{QLocale::French, u"%1 j", u"%1 j", u"%1 h", u"%1 min", u"%1 s", u" "},
    UnitWords{QLocale::Spanish, u"%1 d", u"%1 d", u"%1 h", u"%1 min", u"%1 s", u" "},
    UnitWords{QLocale::Russian, u"%1 д", u"%1 д", u"%1 ч", u"%1 мин", u"%1 с", u" "},
    UnitWords{QLocale::Japanese, u"%1日", u"%1日", u"%1時間", u"%1分", u"%1秒", u""},
    UnitWords{QLocale::Arabic, u"%1 ي", u"%1 ي", u"%1 س", u"%1 د", u"%1 ث", u" و"},
};

const UnitWords& unitWordsOf(const QLocale& locale) {
  const auto* known =
      std::find_if(kUnitWords.begin(), kUnitWords.end(),
                   [&](const UnitWords& words) { return words.language == locale.language(); });
  return known == kUnitWords.end() ? kUnitWords.front() : *known;
}

QString amount(const char16_t* words, qint64 number) {
  return QString::fromUtf16(words).arg(number);
}

// The largest unit and, unless it is zero, the next one.
QString relativeText(qint64 seconds, const UnitWords& words) {
  const qint64 days = seconds / 86400, hours = seconds / 3600 % 24, minutes = seconds / 60 % 60;
  const QString separator = QString::fromUtf16(words.separator);
  const auto join = [&](const QString& large, const char16_t* small, qint64 number) {
    return number == 0 ? large : large + separator + amount(small, number);
  };
  if (days > 0) return join(amount(days == 1 ? words.day : words.days, days), words.hour, hours);
  if (hours > 0) return join(amount(words.hour, hours), words.minute, minutes);
  if (minutes > 0) return join(amount(words.minute, minutes), words.second, seconds % 60);
  return amount(words.second, seconds);
}

QString timeOfDay(double date, const QLocale& locale) {
  const double milliseconds = std::floor(std::clamp(date, -kFarAway, kFarAway) * 1000);
  const QDateTime time = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds));
  return locale.toString(time.time(), QLocale::ShortFormat);
}

}  // namespace

std::optional<TimerStyle> timerStyleFromName(const QString& name) {
  if (name == "timer"_L1) return TimerStyle::kTimer;
  if (name == "relative"_L1) return TimerStyle::kRelative;
  if (name == "time"_L1) return TimerStyle::kTime;
  return std::nullopt;
}

QString timerText(TimerStyle style, double date, double now, const QLocale& locale) {
  switch (style) {
    case TimerStyle::kTimer:
      return inDigitsOf(locale, clockText(wholeSecondsBetween(date, now)));
    case TimerStyle::kRelative:
      return inDigitsOf(locale, relativeText(wholeSecondsBetween(date, now), unitWordsOf(locale)));
    case TimerStyle::kTime:
      return timeOfDay(date, locale);
  }
  return {};
}

double secondsUntilNextTick(double date, double now) {
  const double elapsed = std::clamp(now - date, -kFarAway, kFarAway) + kRounding;
  return 1 - (elapsed - std::floor(elapsed));
}

}  // namespace brevant
