// SPDX-License-Identifier: MIT
#include "desktop/timer_text.h"

#include <gtest/gtest.h>

namespace brevant {
namespace {

constexpr double kDate = 1.7e9;

QString textAfter(TimerStyle style, double seconds, const char* locale = "en_US") {
  return timerText(style, kDate, kDate + seconds, QLocale(QString::fromLatin1(locale)));
}

TEST(TimerText, CountsUpFromItsDateAndDownToOneInTheFuture) {
  const struct {
    double seconds;
    const char* text;
  } cases[] = {
      {0, "0:00"},
      {5, "0:05"},
      {59.999, "0:59"},
      {60, "1:00"},
      {754, "12:34"},
      {3599.9, "59:59"},
      {3600, "1:00:00"},
      {3723, "1:02:03"},
      {360000, "100:00:00"},
      {-1, "0:01"},
      {-0.2, "0:01"},
      {-3723, "1:02:03"},
      {0.3 - 0.1, "0:00"},
      {1e300, "277777777:46:40"},
      {-1e300, "277777777:46:40"},
  };
  for (const auto& [seconds, text] : cases) {
    EXPECT_EQ(textAfter(TimerStyle::kTimer, seconds).toStdString(), text) << seconds;
  }
  // 1e9 + 0.3 and 1e9 + 5.3 are a little less than 5 apart as doubles.
  EXPECT_EQ(timerText(TimerStyle::kTimer, 1e9 + 0.3, 1e9 + 5.3, QLocale::c()).toStdString(),
            "0:05");
}

TEST(TimerText, NamesTheTwoLargestUnitsInTheLanguage) {
  const struct {
    const char* locale;
    double seconds;
    const char* text;
  } cases[] = {
      {"en_US", 5, "5 sec"},
      {"en_US", 60, "1 min"},
      {"en_US", 312, "5 min, 12 sec"},
      {"en_US", 7500, "2 hr, 5 min"},
      {"en_US", 7259, "2 hr"},
      {"en_US", 90000, "1 day, 1 hr"},
      {"en_US", 172800, "2 days"},
      {"en_US", -7500, "2 hr, 5 min"},
      {"de_DE", 7500, "2 Std., 5 Min."},
      {"de_DE", 5, "5 Sek."},
      {"fr_FR", 7500, "2 h 5 min"},
      {"es_ES", 7500, "2 h 5 min"},
      {"ru_RU", 7500, "2 ч 5 мин"},
      {"ja_JP", 7500, "2時間5分"},
      {"ar_EG", 7500, "٢ س و٥ د"},
      {"fi_FI", 7500, "2 hr, 5 min"},
  };
  for (const auto& [locale, seconds, text] : cases) {
    EXPECT_EQ(textAfter(TimerStyle::kRelative, seconds, locale).toStdString(), text) << locale;
  }
}

TEST(TimerText, WritesTimesAsTheLocaleDoes) {
  // 22:13:20 in UTC
  EXPECT_EQ(textAfter(TimerStyle::kTime, 1e6, "en_US").toStdString(), "10:13 PM");
  EXPECT_EQ(textAfter(TimerStyle::kTime, 0, "de_DE").toStdString(), "22:13");
  EXPECT_EQ(textAfter(TimerStyle::kTimer, 754, "ar_EG").toStdString(), "١٢:٣٤");
}

TEST(TimerText, TicksWhenTheDatesOwnSecondIsFull) {
  EXPECT_NEAR(secondsUntilNextTick(kDate, kDate + 3.25), 0.75, 1e-5);
  EXPECT_NEAR(secondsUntilNextTick(kDate + 0.5, kDate + 3.25), 0.25, 1e-5);
  EXPECT_NEAR(secondsUntilNextTick(kDate, kDate - 3.25), 0.25, 1e-5);
  EXPECT_NEAR(secondsUntilNextTick(kDate, kDate + 3), 1, 1e-5);
}

}  // namespace
}  // namespace brevant
