// SPDX-License-Identifier: MIT
#include "manager/notify_settings.h"

#include <gmock/gmock.h>

#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

PropertyValue number(std::int64_t value) {
  return {value};
}

// Each hour that is on, with the number of weekdays.
std::string hoursOn(const NotifySettings& settings) {
  std::string hours;
  for (std::size_t hour = 0; hour < 30; ++hour) {
    int days = 0;
    for (std::size_t weekday = 0; weekday < 9; ++weekday) days += settings.includes(hour, weekday);
    if (days > 0) hours += std::to_string(hour) + ":" + std::to_string(days) + " ";
  }
  return hours;
}

// On or off, the minutes and the type, then the hours.
std::string meaning(const NotifySettings& settings) {
  return (settings.enabled ? "on " : "off ") + std::to_string(settings.minutes) + " " +
         std::to_string(settings.type) + ": " + hoursOn(settings);
}

TEST(NotifySettings, ReadWhatIsStored) {
  const PropertyArray oldHours{number(9), {24.0},    {std::uint64_t{1}}, {std::string("5")},
                               {7.5},     number(0), number(25)};
  const PropertyArray oddTable{{PropertyDictionary()},
                               {PropertyArray(7, {std::string("yes")})},
                               number(1),
                               {PropertyArray(2, number(-1))},
                               {PropertyArray(7, {PropertyArray()})}};
  const std::pair<PropertyDictionary, const char*> cases[] = {
      {{}, "off 0 0: "},
      // The new form of the hours wins.
      {{{"notifyEnabled", {true}},
        {"notifyMinutes", number(45)},
        {"remindMeType", number(2)},
        {"notifyIncludedHours", {PropertyArray{number(9)}}},
        {"notifyIncludedHoursAndDays", {PropertyArray(3, {PropertyArray(7, {true})})}}},
       "on 45 2: 0:7 1:7 2:7 "},
      // The old hours count from 1 and are numbers of any type.
      {{{"notifyIncludedHours", {oldHours}}}, "off 0 0: 0:7 8:7 23:7 "},
      {{{"notifyEnabled", number(5)},
        {"notifyMinutes", {std::string("15")}},
        {"remindMeType", number((std::int64_t{1} << 32U) + 1)}},
       "on 15 1: "},
      {{{"notifyEnabled", {PropertyArray()}},
        {"notifyMinutes", {PropertyDictionary()}},
        {"notifyIncludedHours", number(9)},
        {"remindMeType", {PropertyData()}}},
       "off 0 0: "},
      {{{"notifyIncludedHoursAndDays", {oddTable}}}, "off 0 0: 1:7 3:2 "},
  };
  for (const auto& [stored, expected] : cases) {
    const NotifySettings settings(&stored);
    EXPECT_EQ(meaning(settings), expected);

    const PropertyDictionary written = settings.dictionary();
    EXPECT_EQ(written.size(), 4U);
    EXPECT_FALSE(written.contains("notifyIncludedHours"));
    EXPECT_EQ(NotifySettings(&written).dictionary(), written);
  }
}

TEST(NotifySettings, WithoutADictionaryAreOffWithTheHoursOfTheDay) {
  NotifySettings settings(nullptr);
  EXPECT_EQ(meaning(settings),
            "off 30 0: 8:7 9:7 10:7 11:7 12:7 13:7 14:7 15:7 16:7 17:7 18:7 19:7 20:7 21:7 ");
  settings.includeHours.reset();
  EXPECT_FALSE(settings.dictionary().contains("notifyIncludedHoursAndDays"));
}

TEST(NotifySettings, DescribeTheInterval) {
  FakeBundle bundle;
  bundle.texts = {{"Every hour", "Jede Stunde"}, {"Every %d minutes", "Alle %d Minuten (%d)"}};
  NotifySettings settings(nullptr);
  for (const auto& [minutes, text] : {std::pair(30, "Alle 30 Minuten (%d)"),
                                      {60, "Jede Stunde"},
                                      {120, "Every 2 hours"},
                                      {-5, "Alle -5 Minuten (%d)"}}) {
    settings.minutes = minutes;
    EXPECT_EQ(settings.description(bundle), text);
  }
}

}  // namespace
}  // namespace brevant::test
