// SPDX-License-Identifier: MIT
#include "platform/linux/calendar.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/support/fake_platform.h"
#include "tests/support/time_zone.h"

namespace brevant {
namespace {

// Both calendars, in a zone of 5 1/2 hours.
class CalendarContract : public testing::TestWithParam<bool> {
 protected:
  const test::TimeZone zone{"Asia/Kolkata"};
  const std::unique_ptr<Calendar> calendar =
      GetParam() ? makeCalendar() : std::make_unique<test::FakeCalendar>(19800);
};

TEST_P(CalendarContract, ConvertsBetweenInstantsAndComponents) {
  const struct {
    double seconds;
    DateComponents components;
  } cases[] = {
      {1709231399, {2024, 2, 29, 23, 59, 59, 5}},  // a leap day
      {1709231400, {2024, 3, 1, 0, 0, 0, 6}},
      {-1, {1970, 1, 1, 5, 29, 59, 5}},
      {1e9, {2001, 9, 9, 7, 16, 40, 1}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(calendar->components(dateFromSeconds(each.seconds + 0.75)), each.components);
    EXPECT_EQ(calendar->date(each.components), dateFromSeconds(each.seconds));
  }
}

TEST_P(CalendarContract, CarriesComponentsOutOfRangeOver) {
  const Date expected = calendar->date({2024, 1, 1, 1, 15, 0});
  for (const DateComponents& each :
       {DateComponents{2024, 1, 1, 0, 75, 0}, DateComponents{2023, 13, 1, 0, 0, 4500},
        DateComponents{2024, 2, -30, 1, 15, 0}, DateComponents{2025, -11, 2, -23, 15, 0}}) {
    EXPECT_EQ(calendar->date(each), expected);
  }
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, CalendarContract, testing::Bool());

TEST(LinuxCalendarTest, MeansTheFirstOfTwoAndTheNextThatExists) {
  const struct {
    const char* zone;
    DateComponents local;
    double expected;
  } cases[] = {
      {"Europe/Berlin", {2024, 3, 31, 2, 30, 0}, 1711846800},        // no such time: 3:00
      {"Europe/Berlin", {2024, 10, 27, 2, 30, 0}, 1729989000},       // twice
      {"America/New_York", {2024, 3, 10, 2, 0, 0}, 1710054000},      // no such time
      {"America/New_York", {2024, 11, 3, 1, 30, 0}, 1730611800},     // twice
      {"Australia/Lord_Howe", {2024, 10, 6, 2, 15, 0}, 1728142200},  // half an hour is missing
      {"Australia/Lord_Howe", {2024, 4, 7, 1, 45, 0}, 1712414700},   // half an hour is twice
      {"Pacific/Apia", {2011, 12, 30, 12, 0, 0}, 1325239200},        // a whole day is missing
      {"Pacific/Apia", {2011, 12, 29, 23, 0, 0}, 1325235600},
  };
  for (const auto& each : cases) {
    const test::TimeZone zone(each.zone);
    EXPECT_EQ(secondsSince1970(makeCalendar()->date(each.local)), each.expected) << each.zone;
  }
}

TEST(LinuxCalendarTest, KeepsTheTimeOfDayOverDaysOfOtherLengths) {
  const struct {
    const char* zone;
    DateComponents from;
    int days;
    double hours;
  } cases[] = {
      {"Europe/Berlin", {2024, 3, 30, 12, 0, 0}, 1, 23},
      {"Europe/Berlin", {2024, 10, 26, 12, 0, 0}, 1, 25},
      {"Europe/Berlin", {2024, 3, 31, 12, 0, 0}, -1, -23},
      {"Europe/Berlin", {2024, 3, 30, 2, 30, 0}, 1, 23.5},  // 2:30 does not exist: 3:00
      {"America/New_York", {2024, 11, 2, 18, 0, 0}, 2, 49},
      {"Australia/Lord_Howe", {2024, 10, 5, 12, 0, 0}, 1, 23.5},
      {"Asia/Kolkata", {2024, 2, 28, 23, 0, 0}, 2, 48},
  };
  for (const auto& each : cases) {
    const test::TimeZone zone(each.zone);
    const auto calendar = makeCalendar();
    const Date from = calendar->date(each.from) + Seconds(0.25);
    EXPECT_EQ((calendar->addingDays(from, each.days) - from) / Seconds(3600), each.hours)
        << each.zone << " " << each.from.month;
  }
}

TEST(LinuxCalendarTest, UnderstandsEveryWayToNameAZone) {
  for (const char* const name : {"Europe/Berlin", ":Europe/Berlin", "CET-1CEST,M3.5.0,M10.5.0/3",
                                 "/usr/share/zoneinfo/Europe/Berlin"}) {
    const test::TimeZone zone(name);
    for (const double noon : {1719835200.0, 2540376000.0}) {  // in July 2024, and of 2050
      EXPECT_EQ(makeCalendar()->components(dateFromSeconds(noon)).hour, 14) << name;
    }
  }
  const test::TimeZone zone("No/Such_Zone");
  EXPECT_EQ(makeCalendar()->components(dateFromSeconds(1719835200)).hour, 12);
}

TEST(LinuxCalendarTest, ClampsWhatNoCalendarHolds) {
  const auto calendar = makeCalendar();
  for (const double seconds : {1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    const DateComponents clamped = calendar->components(dateFromSeconds(seconds));
    EXPECT_EQ(std::abs(clamped.year), 32767);
  }
  EXPECT_EQ(calendar->components(calendar->date({INT32_MAX, INT32_MAX, INT32_MAX})).year, 32767);
  EXPECT_EQ(calendar->components(calendar->addingDays(Date(), INT32_MIN)).year, -32767);
}

}  // namespace
}  // namespace brevant
