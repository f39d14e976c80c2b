// SPDX-License-Identifier: MIT

// Reading the unfinished activities: the data-access object with the real settings, a loop in C
// that builds the same records by column number, and a C++ wrapper that does so by column name.
#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sqlite3.h>

#include "bench/ratio_report.h"
#include "platform/linux/linux_platform.h"
#include "store/widget_dao.h"

namespace brevant::bench {
namespace {

constexpr const char* kActivities =
    "SELECT guid, start_date, state, comment, category_guid FROM logs "
    "WHERE (state = 1 OR state = 2) AND is_deleted = 0";
constexpr const char* kIntervals =
    "SELECT guid, start, finish, start_m, finish_m FROM time_intervals "
    "WHERE is_deleted=0 AND log_guid = ?";

constexpr const char* kSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>activityMinDuration</key><integer>1</integer>
<key>dateTimePrecision</key><integer>0</integer>
<key>pauseEnabled</key><true/>
</dict></plist>)";

// A container with a log of so many activities with so many intervals each.
class Container {
 public:
  Container(std::int64_t activities, std::int64_t intervals) {
    std::filesystem::create_directories(settingsFolder());
    std::ofstream(settingsFolder() / "group.brevant.plist") << kSettings;
    SQLite::Database file(database(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    file.exec(
        "CREATE TABLE logs (guid TEXT, start_date REAL, state INTEGER, comment TEXT,"
        " category_guid TEXT, is_deleted INTEGER DEFAULT 0);"
        "CREATE TABLE time_intervals (guid TEXT, start REAL, finish REAL, start_m REAL,"
        " finish_m REAL, log_guid TEXT, is_deleted INTEGER DEFAULT 0);"
        "CREATE INDEX by_log ON time_intervals (log_guid)");
    const std::string upTo =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
        "WHERE i < ";
    file.exec("INSERT INTO logs (guid, start_date, state, comment, category_guid) " + upTo +
              std::to_string(activities) +
              ") SELECT printf('%08X-0000-4000-8000-000000000001', i), 1.7e9 + i, 1, 'comment', "
              "printf('%08X-0000-4000-8000-000000000002', i) FROM n");
    file.exec("INSERT INTO time_intervals (guid, start, finish, start_m, finish_m, log_guid) " +
              upTo + std::to_string(intervals) +
              ") SELECT printf('%08X-0000-4000-8000-000000000003', i), 1.6e9 + i, 1.6e9 + i + 5, "
              "1.6e9, 1.6e9, logs.guid FROM n, logs");
  }
  ~Container() { std::filesystem::remove_all(folder_); }
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  std::string folder() const { return folder_.string(); }
  std::string database() const { return (folder_ / "database.sqlite").string(); }

 private:
  static std::filesystem::path newFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "brevant-bench-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    return name;
  }
  std::filesystem::path settingsFolder() const { return folder_ / "Library" / "Preferences"; }

  const std::filesystem::path folder_ = newFolder();
};

void findActivities(benchmark::State& state) {
  const Container container(state.range(0), state.range(1));
  LinuxPlatform linux({.container = container.folder(), .now = std::nullopt, .resources = ""});
  WidgetDAO dao(linux.platform(), container.database());
  for (auto _ : state) {
    const ActivityList activities = dao.findActivities();
    if (std::ssize(activities) != state.range(0) ||
        std::ssize(*activities.front()->intervals) != state.range(1)) {
      state.SkipWithError("wrong result");
    }
  }
}

struct CInterval {
  char* guid;
  double from, to;
  bool hasFrom, hasTo;
};

struct CActivity {
  char *guid, *comment, *category;
  double start;
  bool hasStart;
  int state;
  CInterval* intervals;
  std::size_t count;
};

char* copyOfText(sqlite3_stmt* row, int column) {
  const unsigned char* const text = sqlite3_column_text(row, column);
  return text ? strdup(reinterpret_cast<const char*>(text)) : nullptr;
}

bool readDate(sqlite3_stmt* row, int column, double* date) {
  if (sqlite3_column_type(row, column) == SQLITE_NULL) return false;
  *date = sqlite3_column_double(row, column);
  return true;
}

// Makes room for one more element.
template <typename T>
T* grown(T* list, std::size_t count) {
  const bool isFull = (count & (count - 1)) == 0;
  if (!isFull) return list;
  return static_cast<T*>(std::realloc(list, sizeof(T) * (count > 0 ? 2 * count : 1)));
}

void readIntervals(sqlite3* db, CActivity* activity) {
  sqlite3_stmt* row = nullptr;
  sqlite3_prepare_v2(db, kIntervals, -1, &row, nullptr);
  sqlite3_bind_text(row, 1, activity->guid, -1, SQLITE_TRANSIENT);
  while (sqlite3_step(row) == SQLITE_ROW) {
    activity->intervals = grown(activity->intervals, activity->count);
    CInterval* const interval = &activity->intervals[activity->count++];
    interval->guid = copyOfText(row, 0);
    interval->hasFrom = readDate(row, 1, &interval->from);
    interval->hasTo = readDate(row, 2, &interval->to);
  }
  sqlite3_finalize(row);
}

int latestStartFirst(const void* a, const void* b) {
  const double one = static_cast<const CActivity*>(a)->start;
  const double other = static_cast<const CActivity*>(b)->start;
  return one > other ? -1 : one < other;
}

CActivity* readActivities(sqlite3* db, std::size_t* count) {
  CActivity* activities = nullptr;
  sqlite3_stmt* row = nullptr;
  sqlite3_prepare_v2(db, kActivities, -1, &row, nullptr);
  while (sqlite3_step(row) == SQLITE_ROW) {
    activities = grown(activities, *count);
    CActivity* const activity = &activities[(*count)++];
    *activity = {};
    activity->guid = copyOfText(row, 0);
    activity->hasStart = readDate(row, 1, &activity->start);
    activity->state = sqlite3_column_int(row, 2);
    activity->comment = copyOfText(row, 3);
    activity->category = copyOfText(row, 4);
    readIntervals(db, activity);
  }
  sqlite3_finalize(row);
  qsort(activities, *count, sizeof *activities, latestStartFirst);
  return activities;
}

void freeActivities(CActivity* activities, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = 0; j < activities[i].count; ++j)
      std::free(activities[i].intervals[j].guid);
    std::free(activities[i].intervals);
    std::free(activities[i].guid);
    std::free(activities[i].comment);
    std::free(activities[i].category);
  }
  std::free(activities);
}

void bareLoop(benchmark::State& state) {
  const Container container(state.range(0), state.range(1));
  sqlite3* db = nullptr;
  sqlite3_open(container.database().c_str(), &db);
  for (auto _ : state) {
    std::size_t count = 0;
    CActivity* const activities = readActivities(db, &count);
    if (std::cmp_not_equal(count, state.range(0)) ||
        std::cmp_not_equal(activities->count, state.range(1))) {
      state.SkipWithError("wrong result");
    }
    freeActivities(activities, count);
  }
  sqlite3_close(db);
}

std::optional<std::string> textOf(const SQLite::Column& column) {
  return column.isNull() ? std::nullopt : std::optional(column.getString());
}

std::optional<Date> dateOf(const SQLite::Column& column) {
  return column.isNull() ? std::nullopt : std::optional(dateFromSeconds(column.getDouble()));
}

IntervalList readIntervals(SQLite::Database& db, const std::string& activity) {
  IntervalList intervals;
  SQLite::Statement row(db, kIntervals);
  row.bind(1, activity);
  while (row.executeStep()) {
    intervals.push_back(std::make_shared<WidgetInterval>());
    intervals.back()->guid = textOf(row.getColumn("guid"));
    intervals.back()->from = dateOf(row.getColumn("start"));
    intervals.back()->to = dateOf(row.getColumn("finish"));
  }
  return intervals;
}

void wrapperByName(benchmark::State& state) {
  const Container container(state.range(0), state.range(1));
  SQLite::Database db(container.database());
  for (auto _ : state) {
    ActivityList activities;
    SQLite::Statement row(db, kActivities);
    while (row.executeStep()) {
      activities.push_back(std::make_shared<WidgetActivity>());
      WidgetActivity& activity = *activities.back();
      activity.guid = textOf(row.getColumn("guid"));
      activity.categoryGuid = textOf(row.getColumn("category_guid"));
      activity.start = dateOf(row.getColumn("start_date"));
      activity.comment = textOf(row.getColumn("comment"));
      activity.state = row.getColumn("state").getInt();
      activity.intervals = readIntervals(db, *activity.guid);
    }
    std::ranges::sort(activities, std::ranges::greater(),
                      [](const ActivityRef& each) { return each->start; });
    benchmark::DoNotOptimize(activities.data());
  }
}

void sizes(benchmark::internal::Benchmark* each) {
  each->Args({2, 5})->Args({1, 100'000})->Unit(benchmark::kMicrosecond);
}
BENCHMARK(findActivities)->Apply(sizes);
BENCHMARK(bareLoop)->Apply(sizes);
BENCHMARK(wrapperByName)->Apply(sizes);

const Ratio kRatios[] = {
    {"findActivities/2/5", "bareLoop/2/5", 1.10},
    {"findActivities/1/100000", "bareLoop/1/100000", 1.20},
    {"findActivities/2/5", "wrapperByName/2/5", 1.00},
    {"findActivities/1/100000", "wrapperByName/1/100000", 1.00},
};

}  // namespace
}  // namespace brevant::bench
