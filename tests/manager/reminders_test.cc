// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "manager/notify_settings.h"
#include "platform/linux/calendar.h"
#include "tests/manager/manager_on_database.h"
#include "tests/support/replaced_services.h"
#include "tests/support/time_zone.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct Hours {
  int first, last;
  int weekday = -1;  // 0 = Monday; -1: every one
};

constexpr Hours kAlways{0, 23};

PropertyValue table(const Hours& on) {
  PropertyArray rows;
  for (int hour = 0; hour < 24; ++hour) {
    PropertyArray row;
    for (int day = 0; day < 7; ++day) {
      row.push_back({hour >= on.first && hour <= on.last && (on.weekday < 0 || on.weekday == day)});
    }
    rows.push_back({row});
  }
  return {rows};
}

PropertyValue settings(std::int64_t minutes, PropertyValue hours, std::int64_t type = 0) {
  return {PropertyDictionary{{"notifyEnabled", {true}},
                             {"notifyMinutes", {minutes}},
                             {"remindMeType", {type}},
                             {"notifyIncludedHoursAndDays", std::move(hours)}}};
}

TEST(ReminderTimes, StandOnTheGridFromNowInTheHoursThatAreOn) {
  struct Case {
    const char* what;
    const char* zone;
    const char* now;
    int minutes;
    Hours on;
    const char* expected;  // day and time on the wall's clock
  };
  constexpr const char* kBerlin = "Europe/Berlin";
  const Case cases[] = {
      {"an hour of Monday", "UTC", "2023-11-13 13:50", 30, {14, 14, 0}, "13 14:20, 13 14:50, "},
      {"only twenty", "UTC", "2023-11-14 10:17", 60, kAlways,
       "14 11:17, 14 12:17, 14 13:17, 14 14:17, 14 15:17, 14 16:17, 14 17:17, 14 18:17, 14 19:17, "
       "14 20:17, 14 21:17, 14 22:17, 14 23:17, 15 00:17, 15 01:17, 15 02:17, 15 03:17, 15 04:17, "
       "15 05:17, 15 06:17, "},
      {"into Sunday", "UTC", "2023-11-18 22:40", 720, {0, 23, 6}, "19 10:40, "},
      {"5 1/2 hours", "Asia/Kolkata", "2023-11-14 10:05", 180, {11, 14}, "14 13:05, "},
      {"an hour twice", kBerlin, "2023-10-28 12:30", 60, {2, 2}, "29 02:30, 29 02:30, "},
      {"an hour left out", kBerlin, "2024-03-30 12:30", 60, {1, 3}, "31 01:30, 31 03:30, "},
      {"25 hours", kBerlin, "2023-10-28 12:00", 720, kAlways, "29 00:00, 29 11:00, "},
      {"23 hours", kBerlin, "2024-03-30 12:00", 690, kAlways, "30 23:30, "},
      {"24 1/2 hours", "Australia/Lord_Howe", "2024-04-06 12:00", 1440, kAlways, "07 11:30, "},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    const TimeZone zone(each.zone);
    const std::unique_ptr<Calendar> calendar = makeCalendar();
    FakePlatform fakes;
    DateComponents now;
    std::sscanf(each.now, "%d-%d-%d %d:%d", &now.year, &now.month, &now.day, &now.hour,
                &now.minute);
    fakes.clock.time = calendar->date(now);
    fakes.settings.values["notifySettings"] = settings(each.minutes, table(each.on));
    const WidgetManager manager(replaced(fakes.platform(), {.calendar = calendar.get()}), {});
    std::string times;
    for (const Date date : manager.notifyHours()) {
      const DateComponents local = calendar->components(date);
      char text[16];
      std::snprintf(text, sizeof text, "%02d %02d:%02d, ", local.day, local.hour, local.minute);
      times += text;
    }
    EXPECT_EQ(times, each.expected);
  }
}

TEST(ReminderTimes, TheWalkEndsWhateverIsStored) {
  const PropertyValue always = table(kAlways);
  PropertyArray half = std::get<PropertyArray>(always.value);
  half.resize(12);
  const std::int64_t beyond32Bits = std::int64_t{1} << 32U;
  const std::tuple<const char*, PropertyValue, std::size_t> cases[] = {
      {"no distance", settings(0, always), 0},
      {"backwards", settings(-30, always), 0},
      {"no distance in 32 bits", settings(beyond32Bits, always), 0},
      {"half a day in 32 bits", settings(beyond32Bits + 720, always), 1},
      {"the largest distance", settings(INT32_MAX, always), 0},
      {"no rows from noon on", settings(60, {half}), 12},
      {"no table", settings(60, {std::string("always")}), 0},
      {"off", {PropertyDictionary{{"notifyMinutes", {std::int64_t{60}}}}}, 0},
      {"no dictionary", {std::string("60")}, 0},
  };
  for (const auto& [what, stored, count] : cases) {
    FakePlatform fakes;
    fakes.settings.values["notifySettings"] = stored;
    EXPECT_THAT(WidgetManager(fakes.platform(), {}).notifyHours(), SizeIs(count)) << what;
  }
  const TimeZone zone("UTC");
  const std::unique_ptr<Calendar> calendar = makeCalendar();
  for (const double now : {-1e300, -1e19, -1e15, 1e15, 1e300}) {  // beyond the calendar's ends
    FakePlatform fakes;
    fakes.clock.time = dateFromSeconds(now);
    fakes.settings.values["notifySettings"] = settings(1, table({24, 24}));
    const WidgetManager manager(replaced(fakes.platform(), {.calendar = calendar.get()}), {});
    EXPECT_THAT(manager.notifyHours(), IsEmpty()) << now;
  }
}

TEST(ReminderTimes, DependOnWhetherSomethingRuns) {
  const std::tuple<int, std::size_t, std::size_t> cases[] = {
      {0, 1, 1}, {1, 1, 0}, {2, 0, 1}, {3, 1, 1}, {-1, 1, 1}};
  ManagerOnDatabase nothingRuns;
  nothingRuns.database.run("INSERT INTO logs (guid, state) VALUES ('paused', 2)");
  ManagerOnDatabase running;
  running.database.run("INSERT INTO logs (guid, state) VALUES ('paused', 2), ('running', 1)");
  for (const auto& [type, whileRunning, whileNothingRuns] : cases) {
    const PropertyValue stored = settings(720, table(kAlways), type);
    running.fakes.settings.values["notifySettings"] = stored;
    nothingRuns.fakes.settings.values["notifySettings"] = stored;
    EXPECT_THAT(running.manager.notifyHours(), SizeIs(whileRunning)) << type;
    EXPECT_THAT(nothingRuns.manager.notifyHours(), SizeIs(whileNothingRuns)) << type;
  }
}

auto identified(const auto& identifier) {
  return testing::Field(&NotificationRequest::identifier, identifier);
}

NotificationRequest request(const std::string& identifier, const std::string& type) {
  NotificationRequest result{identifier, {}, {}};
  if (!type.empty()) result.content.userInfo["type"] = type;
  return result;
}

struct Reminders : testing::Test, ManagerOnDatabase {
  Reminders() {
    fakes.notifications.pending = {request("remind-old", ""), request("other", "notify"),
                                   request("to-remind-me", "x"), request("last", "notify-2")};
    store(settings(660, table(kAlways)));
  }

  void store(PropertyValue value) { fakes.settings.values["notifySettings"] = std::move(value); }
  std::string body() {
    manager.scheduleRemindMeNotifications();
    return fakes.notifications.pending.back().content.body;
  }
};

TEST_F(Reminders, SchedulingReplacesThoseMarkedByTheirIdentifier) {
  manager.scheduleRemindMeNotifications();
  const std::vector<NotificationRequest>& pending = fakes.notifications.pending;
  const auto isNew = identified(testing::MatchesRegex("remind-[0-9A-F-]{36}"));
  EXPECT_THAT(pending, ElementsAre(identified("other"), identified("last"), isNew, isNew));
  EXPECT_NE(pending[2].identifier, pending[3].identifier);
  EXPECT_EQ(
      pending[2].content,
      (NotificationContent{"Remind", "What are you doing now?", {{"type", "notify"}}, "default"}));
  EXPECT_EQ(pending[2].trigger,
            (CalendarTrigger{{2023, 11, 15, 9, 13, 20, 4}, false, dateFromSeconds(1'700'039'600)}));
  EXPECT_EQ(pending[3].trigger.components.hour, 20);
}

TEST_F(Reminders, SchedulingWithoutTimesOnlyRemovesAndWhenOffDoesNothing) {
  store({PropertyDictionary()});
  manager.scheduleRemindMeNotifications();
  EXPECT_THAT(fakes.notifications.pending, SizeIs(4));
  store(settings(660, table(kAlways), 1));
  manager.scheduleRemindMeNotifications();
  EXPECT_THAT(fakes.notifications.pending, ElementsAre(identified("other"), identified("last")));
}

TEST_F(Reminders, CancellingRemovesThoseMarkedByTheirType) {
  manager.cancelRemindMeNotifications();
  EXPECT_THAT(fakes.notifications.pending,
              ElementsAre(identified("remind-old"), identified("to-remind-me")));
}

TEST_F(Reminders, NameTheCategoryOfTheFirstRunningActivity) {
  fakes.bundle.texts["What are you doing now? Now running: %@"] = "Running: %@ (%@)";
  database.run("INSERT INTO logs (guid, state, start_date) VALUES ('A', 1, 100)");
  EXPECT_EQ(body(), "Running:  (%@)");
  database.run(R"(
    INSERT INTO categories (guid, name) VALUES ('early', 'Early'), ('late', '%@ Late');
    INSERT INTO logs (guid, state, start_date, category_guid) VALUES
      ('B', 1, 200, 'late'), ('C', 2, NULL, 'early'))");
  EXPECT_EQ(body(), "Running: %@ Late (%@)");
  database.run("UPDATE logs SET category_guid = 'gone'");
  EXPECT_EQ(body(), "Running:  (%@)");
}

// Answers when the test says so, as a platform may on another thread.
struct LateCenter : FakeNotificationCenter {
  void pendingRequests(Handler handler, Completion) override {
    handlers.push_back(std::move(handler));
  }

  std::vector<Handler> handlers;
};

TEST_F(Reminders, AskWhatRunsWhenThePlatformAnswersThoughTheManagerIsGone) {
  fakes.bundle.texts["What are you doing now? Now running: %@"] = "Running";
  LateCenter late;
  {
    WidgetManager shortLived(replaced(fakes.platform(), {.notifications = &late}), database.path);
    shortLived.scheduleRemindMeNotifications();
    shortLived.cancelRemindMeNotifications();
  }
  database.run("INSERT INTO logs (guid, state, start_date) VALUES ('A', 1, 100)");
  late.pending = {request("remind-old", "")};
  late.handlers.at(0)(late.pending);
  ASSERT_THAT(late.pending, SizeIs(2));
  EXPECT_EQ(late.pending[0].content.body, "Running");
  late.handlers.at(1)(std::vector<NotificationRequest>(late.pending));
  EXPECT_THAT(late.pending, IsEmpty());
}

TEST_F(Reminders, StayWhenWhatRunsCannotBeRead) {
  for (const char* const table : {"time_intervals", "categories", "logs"}) {
    database.run(
        "INSERT OR REPLACE INTO logs (guid, state, start_date, category_guid) VALUES ('A', 1, 100, "
        "'C')");
    database.run("ALTER TABLE " + std::string(table) + " RENAME TO hidden");
    SaveOutcome outcome;
    manager.scheduleRemindMeNotifications([&](const SaveOutcome& heard) { outcome = heard; });
    EXPECT_FALSE(outcome.isSaved()) << table;
    EXPECT_THAT(fakes.notifications.pending, SizeIs(4)) << table;
    EXPECT_EQ(fakes.notifications.pending.at(0).identifier, "remind-old");
    database.run("ALTER TABLE hidden RENAME TO " + std::string(table));
  }
}

TEST(ReminderPlatform, IsOlderThan10ByTheFirstDigitOfItsVersion) {
  FakePlatform fakes;
  const WidgetManager manager(fakes.platform(), {});
  for (const auto& [major, expected] : {std::pair(17, true), {10, true}, {9, false}, {8, false}}) {
    fakes.process.version = {major, 1};
    EXPECT_EQ(manager.iOS10(), expected) << major;
  }
}

}  // namespace
}  // namespace brevant::test
