// SPDX-License-Identifier: MIT
#include "store/sample_database.h"

#include <initializer_list>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "platform/calendar.h"
#include "platform/clock.h"
#include "platform/uuid.h"
#include "store/fm_database.h"
#include "store/whole_minute.h"
#include "store/widget_activity.h"

namespace brevant {
namespace {

constexpr const char* kSchema[] = {
    "CREATE TABLE categories (id INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT NOT NULL UNIQUE, "
    "name TEXT, color INTEGER DEFAULT 0, image_guid TEXT, order_num INTEGER DEFAULT 0, "
    "parent_guid TEXT, is_group INTEGER DEFAULT 0, is_archived INTEGER DEFAULT 0, "
    "is_deleted INTEGER DEFAULT 0, goal INTEGER DEFAULT 0, sync_status INTEGER DEFAULT 0, "
    "revision INTEGER DEFAULT 0, updated_on INTEGER DEFAULT 0)",
    "CREATE TABLE logs (id INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT NOT NULL UNIQUE, "
    "start_date REAL, state INTEGER DEFAULT 0, comment TEXT, category_guid TEXT, "
    "place TEXT, sync_status INTEGER DEFAULT 0, is_deleted INTEGER DEFAULT 0, "
    "revision INTEGER DEFAULT 0, updated_on INTEGER DEFAULT 0)",
    "CREATE TABLE time_intervals (id INTEGER PRIMARY KEY AUTOINCREMENT, "
    "guid TEXT NOT NULL UNIQUE, start REAL, finish REAL, start_m REAL, finish_m REAL, "
    "log_guid TEXT, category_guid TEXT, sync_status INTEGER DEFAULT 0, "
    "is_deleted INTEGER DEFAULT 0, revision INTEGER DEFAULT 0, updated_on INTEGER DEFAULT 0)",
    "CREATE INDEX logs_state ON logs (state, is_deleted)",
    "CREATE INDEX time_intervals_log ON time_intervals (log_guid)",
    "CREATE INDEX time_intervals_start ON time_intervals (start)",
};

struct SampleCategory {
  const char* name;
  const char* group;  // null for one that stands by itself
  int color;
  const char* icon;  // null for the user's own
};

constexpr SampleCategory kCategories[] = {
    {"Programming", "Work", 0x3B82F6, "cat_14"}, {"Meetings", "Work", 0x6366F1, "cat_12"},
    {"E-mail", "Work", 0x0EA5E9, "cat_15"},      {"Cooking", "Home", 0xF97316, "cat_5"},
    {"Housework", "Home", 0xA16207, "cat_13"},   {"Shopping", "Home", 0xEAB308, "cat_8"},
    {"Jogging", "Health", 0x22C55E, "cat_4"},    {"Gym", "Health", 0xEF4444, "cat_9"},
    {"Sleep", "Health", 0x64748B, "cat_10"},     {"Reading", "Learning", 0xA855F7, "cat_3"},
    {"日本語", "Learning", 0xEC4899, "cat_24"},  {"Commute", nullptr, 0x14B8A6, "cat_18"},
    {"Music", nullptr, 0xD946EF, "cat_7"},       {"Garden", nullptr, 0x65A30D, nullptr},
};

struct SampleGroup {
  const char* name;
  int color;
  const char* icon;
};

constexpr SampleGroup kGroups[] = {{"Work", 0x2563EB, "cat_2"},
                                   {"Home", 0xEA580C, "cat_13"},
                                   {"Health", 0x16A34A, "cat_20"},
                                   {"Learning", 0x9333EA, "cat_24"}};

// One entry of a day's plan, in minutes of that day.
struct Planned {
  const char* category;
  int start;
  int length;
};

constexpr Planned kWorkday[] = {
    {"Sleep", 10, 410},        {"Jogging", 435, 35},      {"Commute", 495, 25},
    {"E-mail", 525, 30},       {"Programming", 560, 155}, {"Meetings", 780, 60},
    {"Programming", 850, 165}, {"Commute", 1025, 30},     {"Shopping", 1070, 25},
    {"Cooking", 1140, 45},     {"Reading", 1250, 70},
};
constexpr Planned kFreeDay[] = {
    {"Sleep", 30, 480},  {"Reading", 560, 80}, {"Housework", 660, 75}, {"Garden", 780, 120},
    {"日本語", 930, 60}, {"Gym", 1020, 65},    {"Cooking", 1130, 60},  {"Music", 1230, 95},
};

using Stretch = std::pair<Date, Date>;

class SampleWriter {
 public:
  SampleWriter(const Platform& platform, const std::string& path, StoreListener listener)
      : platform_(platform),
        database_(path, platform.clock, platform.random, platform.log, std::move(listener)) {}

  bool write(const std::string& customIcon) {
    if (!database_.open()) return false;
    bool ok = database_.beginTransaction();
    for (const char* statement : kSchema) ok = ok && database_.executeUpdate(statement);
    ok = ok && addCategories(customIcon) && addHistory() && addUnfinished();
    return ok && database_.commit();
  }

 private:
  bool addCategory(const char* name, const char* group, int color, std::string_view icon,
                   bool isGroup) {
    const std::string guid = guids_[name] = newUuid(platform_.random);
    std::optional<std::string> parent;
    if (group != nullptr) parent = guids_[group];
    return database_.executeUpdate(
        "INSERT INTO categories (guid, name, color, image_guid, order_num, parent_guid, is_group, "
        "updated_on) VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
        guid, name, color, icon, order_++, parent, isGroup, updatedOn(now_));
  }

  bool addCategories(const std::string& customIcon) {
    bool ok = true;
    for (const SampleGroup& group : kGroups) {
      ok = ok && addCategory(group.name, nullptr, group.color, group.icon, true);
    }
    for (const SampleCategory& category : kCategories) {
      const std::string_view icon =
          category.icon == nullptr ? std::string_view(customIcon) : category.icon;
      ok = ok && addCategory(category.name, category.group, category.color, icon, false);
    }
    return ok;
  }

  bool addHistory() {
    constexpr int kDays = 21;
    DateComponents midnight = platform_.calendar.components(now_);
    midnight.hour = midnight.minute = midnight.second = 0;
    const Date today = platform_.calendar.date(midnight);
    bool ok = true;
    for (int day = -kDays; day < 0; ++day) {
      ok = ok && addDay(platform_.calendar.addingDays(today, day), day);
    }
    return ok;
  }

  bool addDay(Date midnight, int day) {
    const int weekday = platform_.calendar.components(midnight).weekday;
    const bool isFree = weekday == 1 || weekday == 7;
    std::vector<Planned> plan(std::begin(kWorkday), std::end(kWorkday));
    if (isFree) plan.assign(std::begin(kFreeDay), std::end(kFreeDay));
    bool ok = true;
    for (const Planned& planned : plan) {
      // Nobody begins on the minute, nor every day at the same one.
      const int late = (day * 7 + planned.start * 3) % 10 * 53;
      const Date start = midnight + Seconds(planned.start * 60 - late);
      ok = ok && addActivity(planned.category, kStateStopped, {},
                             stretches(start, Seconds(planned.length * 60 + late / 2)));
    }
    return ok;
  }

  // Whatever is long had a break in it.
  static std::vector<Stretch> stretches(Date start, Seconds length) {
    constexpr Seconds kLong(100.0 * 60);
    constexpr Seconds kBreak(12.5 * 60);
    if (length < kLong) return {{start, start + length}};
    const Date middle = start + length / 2;
    return {{start, middle}, {middle + kBreak, start + length}};
  }

  bool addUnfinished() {
    const auto ago = [this](double minutes) { return now_ - Seconds(minutes * 60); };
    return addActivity("Reading", kStatePaused, {},
                       {{ago(301.5), ago(262)}, {ago(178.2), ago(162.7)}}) &&
           addActivity("Programming", kStateRunning, ago(23.2),
                       {{ago(121.3), ago(80.1)}, {ago(74.6), ago(35.9)}});
  }

  bool addActivity(const char* category, int state, const std::optional<Date>& start,
                   const std::vector<Stretch>& closed) {
    const std::string guid = newUuid(platform_.random);
    const std::string& categoryGuid = guids_[category];
    bool ok = database_.executeUpdate(
        "INSERT INTO logs (guid, start_date, state, category_guid, updated_on) "
        "VALUES (?, ?, ?, ?, ?)",
        guid, start, state, categoryGuid, updatedOn(start.value_or(closed.back().second)));
    for (const auto& [from, to] : closed) {
      ok = ok && database_.executeUpdate(
                     "INSERT INTO time_intervals (guid, start, finish, start_m, finish_m, "
                     "log_guid, category_guid, updated_on) VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
                     newUuid(platform_.random), from, to, wholeMinute(from), wholeMinute(to), guid,
                     categoryGuid, updatedOn(to));
    }
    return ok;
  }

  Date wholeMinute(Date date) const { return brevant::wholeMinute(date, platform_.calendar); }

  static std::int64_t updatedOn(Date date) {
    return static_cast<std::int64_t>(wholeSeconds(secondsSince1970(date)));
  }

  const Platform& platform_;
  FMDatabase database_;
  const Date now_ = platform_.clock.now();
  std::map<std::string, std::string> guids_;  // by category name
  int order_ = 0;
};

}  // namespace

bool createSampleDatabase(const Platform& platform, const std::string& path,
                          const std::string& customIcon, StoreListener listener) {
  return SampleWriter(platform, path, std::move(listener)).write(customIcon);
}

}  // namespace brevant
