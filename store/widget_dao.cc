#include "store/widget_dao.h"

#include <deque>
#include <memory_resource>
#include <string_view>
#include <utility>

#include "platform/calendar.h"
#include "platform/clock.h"
#include "platform/file_manager.h"
#include "platform/shared_settings.h"
#include "platform/uuid.h"
#include "store/activity_order.h"
#include "store/fm_database.h"

namespace brevant {
namespace {

constexpr std::string_view kSelectTypes =
    "SELECT guid, name, color, image_guid, order_num, sync_status, parent_guid, is_group, "
    "is_archived FROM categories WHERE is_deleted = 0 AND is_archived = 0 ORDER BY order_num";
constexpr std::string_view kSelectActivities =
    "SELECT guid, start_date, state, comment, category_guid FROM logs "
    "WHERE (state = 1 OR state = 2) AND is_deleted = 0";
constexpr std::string_view kSelectIntervals =
    "SELECT guid, start, finish, start_m, finish_m FROM time_intervals "
    "WHERE is_deleted=0 AND log_guid = ?";
constexpr std::string_view kInsertActivity =
    "INSERT INTO logs (guid, start_date, state, category_guid, sync_status, is_deleted, "
    "updated_on) VALUES (?, ?, ?, ?, 1, 0, ?)";
constexpr std::string_view kInsertInterval =
    "INSERT INTO time_intervals (guid, start, finish, start_m, finish_m, log_guid, sync_status, "
    "is_deleted, category_guid, updated_on) VALUES (?, ?, ?, ?, ?, ?, 1, 0, ?, ?)";
constexpr std::string_view kUpdateActivity =
    "UPDATE logs SET start_date = ?, state = ?, category_guid = ?, sync_status = 1, "
    "updated_on = ? WHERE guid = ?";
constexpr std::string_view kUpdateInterval =
    "UPDATE time_intervals SET start = ?, finish = ?, sync_status = 1, updated_on = ? "
    "WHERE guid = ?";
constexpr std::string_view kDeleteIntervals =
    "UPDATE time_intervals SET is_deleted = 1, sync_status = 1, updated_on = ? "
    "WHERE log_guid = ?";
constexpr std::string_view kDeleteActivity =
    "UPDATE logs SET is_deleted = 1, sync_status = 1, updated_on = ? WHERE guid = ?";

// The intervals of one query, which stay in their places.
struct IntervalBlock {
  std::pmr::monotonic_buffer_resource memory;
  std::pmr::deque<WidgetInterval> records{&memory};
};

// The code as the main application stores it.
std::uint32_t storedState(const WidgetActivity& activity) {
  return static_cast<std::uint32_t>(activity.state);
}

}  // namespace

// One exclusive transaction. After a failed statement the others still run, so that the log tells
// of all failures; without the transaction, or once a failure has ended it, none does, as each
// would then be stored by itself.
class WidgetDAO::Write {
 public:
  explicit Write(FMDatabase* db) : db_(db), began_(db && db->beginTransaction()) {}

  template <typename... Arguments>
  void execute(std::string_view sql, const Arguments&... arguments) {
    if (!isOpen() || !db_->executeUpdate(sql, arguments...)) failed_ = true;
  }

  // True when everything is in the file; otherwise nothing is.
  bool commit() {
    if (!isOpen()) return false;
    if (!failed_ && db_->commit()) return true;
    if (isOpen()) db_->rollback();
    return false;
  }

 private:
  bool isOpen() const { return began_ && db_->isInTransaction(); }

  FMDatabase* db_;
  bool began_;
  bool failed_ = false;
};

WidgetDAO::WidgetDAO(const Platform& platform, const std::optional<std::string>& path)
    : platform_(platform) {
  if (!path || !platform_.files.fileExists(*path)) return;
  db = std::make_unique<FMDatabase>(path, platform_.clock, platform_.random, platform_.log);
  db->open();
  db->logsErrors = true;
}

WidgetDAO::~WidgetDAO() = default;

TypeList WidgetDAO::findTypes() const {
  std::vector<std::unique_ptr<WidgetType>> types;
  const auto row = db ? db->executeQuery(kSelectTypes) : nullptr;
  while (row && row->next()) types.push_back(WidgetType::typeFromResultSet(*row));
  return sharedTypes(std::move(types));
}

ActivityList WidgetDAO::findActivities() const {
  ActivityList activities;
  const auto row = db ? db->executeQuery(kSelectActivities) : nullptr;
  while (row && row->next()) {
    ActivityRef activity = WidgetActivity::activityFromResultSet(*row);
    activity->intervals = findIntervals(activity->guid);
    activities.push_back(std::move(activity));
  }
  sortForDisplay(activities);
  return activities;
}

IntervalList WidgetDAO::findIntervals(const std::optional<std::string>& activityGuid) const {
  // A few allocations for all rather than one each: there can be very many.
  const auto block = std::make_shared<IntervalBlock>();
  std::pmr::deque<WidgetInterval>* const records = &block->records;
  const Argument guid(activityGuid);
  const auto row = db->executeQuery(kSelectIntervals, std::span(&guid, 1));
  if (row) {
    WidgetInterval::Reader reader(*row, platform_.settings);
    while (row->next()) reader.read(records->emplace_back());
  }
  IntervalList intervals;
  intervals.reserve(records->size());
  for (WidgetInterval& each : *records) intervals.emplace_back(block, &each);
  return intervals;
}

void WidgetDAO::save(WidgetActivity& activity) {
  Write write(db.get());
  activity.guid = generateGUID();
  write.execute(kInsertActivity, activity.guid, activity.start, storedState(activity),
                activity.categoryGuid, activity.updatedOn);
  if (activity.intervals) {
    for (const auto& interval : *activity.intervals) insertInterval(write, activity, *interval);
  }
  finish(write);
}

void WidgetDAO::update(WidgetActivity& activity) {
  Write write(db.get());
  write.execute(kUpdateActivity, activity.start, storedState(activity), activity.categoryGuid,
                activity.updatedOn, activity.guid);
  if (activity.intervals) {
    for (const auto& interval : *activity.intervals) {
      if (interval->guid.value_or("").empty()) {
        insertInterval(write, activity, *interval);
      } else {
        // The minute columns stay as the main application wrote them.
        write.execute(kUpdateInterval, interval->from, interval->to, interval->updatedOn,
                      interval->guid);
      }
    }
  }
  finish(write);
}

void WidgetDAO::removeLogSilently(const WidgetActivity& activity) {
  Write write(db.get());
  const std::uint64_t now = wholeSeconds(secondsSince1970(platform_.clock.now()));
  write.execute(kDeleteIntervals, now, activity.guid);
  write.execute(kDeleteActivity, now, activity.guid);
  finish(write);
}

void WidgetDAO::insertInterval(Write& write, const WidgetActivity& activity,
                               WidgetInterval& interval) {
  interval.guid = generateGUID();
  write.execute(kInsertInterval, interval.guid, interval.from, interval.to, minuteOf(interval.from),
                minuteOf(interval.to), activity.guid, activity.categoryGuid, activity.updatedOn);
}

void WidgetDAO::finish(Write& write) {
  if (write.commit()) activityUpdated();
}

Date WidgetDAO::dateWithZeroSeconds(Date date) const {
  DateComponents components = platform_.calendar.components(date);
  components.second = 0;
  return platform_.calendar.date(components);
}

std::optional<Date> WidgetDAO::minuteOf(const std::optional<Date>& date) const {
  if (!date) return std::nullopt;
  return dateWithZeroSeconds(*date);
}

void WidgetDAO::activityUpdated() {
  platform_.settings.setBool(true, "widgetUpdatedActivity");
  platform_.settings.synchronize();
}

std::string WidgetDAO::generateGUID() {
  return newUuid(platform_.random);
}

}  // namespace brevant
