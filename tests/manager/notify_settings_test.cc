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

TEST(NotifySettings, ReadWhatIsStored) {
  struct Case {
    const char* what;
    PropertyDictionary stored;
    bool enabled;
    int minutes;
    int type;
    const char* hours;
  };
  const Case cases[] = {
      {"nothing", {}, false, 0, 0, ""},
      {"the new form of the hours wins",
       {{"notifyEnabled", {true}},
        {"notifyMinutes", number(45)},
        {"remindMeType", number(2)},
        {"notifyIncludedHours", {PropertyArray{number(9)}}},
        {"notifyIncludedHoursAndDays", {PropertyArray(3, {PropertyArray(7, {true})})}}},
       true,
       45,
       2,
       "0:7 1:7 2:7 "},
      {"old hours count from 1 and are numbers of any type",
       {{"notifyIncludedHours",
         {PropertyArray{number(9),
                        {24.0},
                        {std::uint64_t{1}},
                        {std::string("5")},
                        {7.5},
                        number(0),
                        number(25)}}}},
       false,
       0,
       0,
       "0:7 8:7 23:7 "},
      {"converted numbers",
       {{"notifyEnabled", number(5)},
        {"notifyMinutes", {std::string("15")}},
        {"remindMeType", number((std::int64_t{1} << 32U) + 1)}},
       true,
       15,
       1,
       ""},
      {"other shapes",
       {{"notifyEnabled", {PropertyArray()}},
        {"notifyMinutes", {PropertyDictionary()}},
        {"notifyIncludedHours", number(9)},
        {"remindMeType", {PropertyData()}}},
       false,
       0,
       0,
       ""},
      {"other shapes in the table",
       {{"notifyIncludedHoursAndDays",
         {PropertyArray{{PropertyDictionary()},
                        {PropertyArray(7, {std::string("yes")})},
                        number(1),
                        {PropertyArray(2, number(-1))},
                        {PropertyArray(7, {PropertyArray()})}}}}},
       false,
       0,
       0,
       "1:7 3:2 "},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    const NotifySettings settings(&each.stored);
    EXPECT_EQ(settings.enabled, each.enabled);
    EXPECT_EQ(settings.minutes, each.minutes);
    EXPECT_EQ(settings.type, each.type);
    EXPECT_EQ(hoursOn(settings), each.hours);

    const PropertyDictionary written = settings.dictionary();
    EXPECT_EQ(written.size(), 4U);
    EXPECT_FALSE(written.contains("notifyIncludedHours"));
    EXPECT_EQ(NotifySettings(&written).dictionary(), written);
  }
}

TEST(NotifySettings, WithoutADictionaryAreOffWithTheHoursOfTheDay) {
  NotifySettings settings(nullptr);
  EXPECT_FALSE(settings.enabled);
  EXPECT_EQ(settings.minutes, 30);
  EXPECT_EQ(hoursOn(settings),
            "8:7 9:7 10:7 11:7 12:7 13:7 14:7 15:7 16:7 17:7 18:7 19:7 20:7 21:7 ");
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
