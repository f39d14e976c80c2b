// SPDX-License-Identifier: MIT
#include "store/widget_dao.h"

#include <array>
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
#include "store/transaction.h"
#include "store/whole_minute.h"

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

// What was written is looked for in these.
constexpr std::string_view kFindActivity = "SELECT 1 FROM logs WHERE guid = ?";
constexpr std::string_view kFindVisible = "SELECT 1 FROM logs WHERE guid = ? AND is_deleted = 0";
constexpr std::string_view kFindChange =
    "SELECT 1 FROM logs WHERE guid = ? AND state = ? AND start_date IS ?";
constexpr std::string_view kFindChangeOfThen =
    "SELECT 1 FROM logs WHERE guid = ? AND state = ? AND start_date IS ? AND updated_on = ?";
constexpr std::string_view kFindInterval = "SELECT 1 FROM time_intervals WHERE guid = ?";

// The intervals of one query, which stay in their places.
struct IntervalBlock {
  std::pmr::monotonic_buffer_resource memory;
  std::pmr::deque<WidgetInterval> records{&memory};
};

// The code as the main application stores it.
std::uint32_t storedState(const WidgetActivity& activity) {
  return static_cast<std::uint32_t>(activity.state);
}

ActivityWrite writeOf(ActivityWrite::Kind kind, const WidgetActivity& activity) {
  return {kind, activity.guid, activity.state, activity.start, activity.updatedOn, std::nullopt};
}

}  // namespace

WidgetDAO::WidgetDAO(const Platform& platform, const std::optional<std::string>& path,
                     StoreListener listener)
    : platform_(platform), listener_(std::move(listener)) {
  if (!path || !platform_.files.fileExists(*path)) return;
  db = std::make_unique<FMDatabase>(path, platform_.clock, platform_.random, platform_.log,
                                    listener_);
  db->open();
  db->logsErrors = true;
}

WidgetDAO::~WidgetDAO() = default;

TypeList WidgetDAO::findTypes() const {
  const FMDatabase::Budget budget(db.get());
  std::vector<std::unique_ptr<WidgetType>> types;
  const auto row = db ? db->executeQuery(kSelectTypes) : nullptr;
  while (row && row->next()) types.push_back(WidgetType::typeFromResultSet(*row));
  if (transaction_ && (!row || row->failed())) transaction_->fail();
  return sharedTypes(std::move(types));
}

ActivityList WidgetDAO::findActivities() const {
  return activities().list;
}

std::optional<ActivityList> WidgetDAO::readActivities() const {
  Rows<ActivityList> rows = activities();
  if (rows.failed) return std::nullopt;
  return std::move(rows.list);
}

std::optional<IntervalList> WidgetDAO::readIntervals(
    const std::optional<std::string>& activityGuid) const {
  if (!db) return IntervalList();
  const FMDatabase::Budget budget(db.get());
  Rows<IntervalList> rows = intervals(activityGuid);
  if (rows.failed) return std::nullopt;
  return std::move(rows.list);
}

WidgetDAO::Rows<ActivityList> WidgetDAO::activities() const {
  Rows<ActivityList> result;
  if (!db) return result;
  const FMDatabase::Budget budget(db.get());
  const auto row = db->executeQuery(kSelectActivities);
  while (row && row->next()) {
    ActivityRef activity = WidgetActivity::activityFromResultSet(*row);
    Rows<IntervalList> closed = intervals(activity->guid);
    result.failed = result.failed || closed.failed;
    activity->intervals = std::move(closed.list);
    result.list.push_back(std::move(activity));
  }
  result.failed = result.failed || !row || row->failed();
  lastReadFailed_ = result.failed;
  if (result.failed && transaction_) transaction_->fail();
  sortForDisplay(result.list);
  return result;
}

WidgetDAO::Rows<IntervalList> WidgetDAO::intervals(
    const std::optional<std::string>& activityGuid) const {
  const Argument guid(activityGuid);
  const auto row = db->executeQuery(kSelectIntervals, std::span(&guid, 1));
  // A few allocations for all rather than one each: there can be very many. Or none.
  std::shared_ptr<IntervalBlock> block;
  if (row) {
    WidgetInterval::Reader reader(*row, platform_.settings);
    while (row->next()) {
      if (!block) block = std::make_shared<IntervalBlock>();
      reader.read(block->records.emplace_back());
    }
  }
  Rows<IntervalList> result{{}, !row || row->failed()};
  if (!block) return result;
  result.list.reserve(block->records.size());
  for (WidgetInterval& each : block->records) result.list.emplace_back(block, &each);
  return result;
}

void WidgetDAO::save(WidgetActivity& activity) {
  Transaction transaction(*this);
  activity.guid = generateGUID();
  transaction.execute(kInsertActivity, activity.guid, activity.start, storedState(activity),
                      activity.categoryGuid, activity.updatedOn);
  ActivityWrite write = writeOf(ActivityWrite::Kind::kSaved, activity);
  if (activity.intervals) {
    for (const auto& interval : *activity.intervals) {
      insertInterval(transaction, activity, *interval);
      write.newInterval = interval->guid;
    }
  }
  finish(transaction, std::move(write));
}

void WidgetDAO::update(WidgetActivity& activity) {
  Transaction transaction(*this);
  if (lastReadFailed_) transaction.fail();
  transaction.execute(kUpdateActivity, activity.start, storedState(activity), activity.categoryGuid,
                      activity.updatedOn, activity.guid);
  ActivityWrite write = writeOf(ActivityWrite::Kind::kUpdated, activity);
  if (activity.intervals) {
    for (const auto& interval : *activity.intervals) {
      if (interval->guid.value_or("").empty()) {
        insertInterval(transaction, activity, *interval);
        write.newInterval = interval->guid;
      } else {
        // The minute columns stay as the main application wrote them.
        transaction.execute(kUpdateInterval, interval->from, interval->to, interval->updatedOn,
                            interval->guid);
      }
    }
  }
  finish(transaction, std::move(write));
}

void WidgetDAO::removeLogSilently(const WidgetActivity& activity) {
  Transaction transaction(*this);
  if (lastReadFailed_) transaction.fail();
  const std::uint64_t now = wholeSeconds(secondsSince1970(platform_.clock.now()));
  transaction.execute(kDeleteIntervals, now, activity.guid);
  transaction.execute(kDeleteActivity, now, activity.guid);
  finish(transaction, writeOf(ActivityWrite::Kind::kRemoved, activity));
}

void WidgetDAO::insertInterval(Transaction& transaction, const WidgetActivity& activity,
                               WidgetInterval& interval) {
  interval.guid = generateGUID();
  transaction.execute(kInsertInterval, interval.guid, interval.from, interval.to,
                      minuteOf(interval.from), minuteOf(interval.to), activity.guid,
                      activity.categoryGuid, activity.updatedOn);
}

// A statement can go well and write nothing: the guid's index is damaged, or a trigger undoes it.
void WidgetDAO::finish(Transaction& transaction, ActivityWrite write) {
  if (transaction.isOpen() && !transaction.hasFailed()) {
    std::optional<bool> stored = rowIsStored(write, Moment::kBeforeCommit);
    if (stored == true && write.newInterval) stored = intervalIsStored(write);
    if (stored == false) {
      db->fail({.step = StatementFailure::Step::kRowNotWritten,
                .message = "the change did not reach the row"});
    }
    if (!stored.value_or(false)) transaction.fail();
  }
  transaction.wrote(std::move(write));
  transaction.commit();
}

std::optional<bool> WidgetDAO::hasActivity(const std::string& guid) const {
  const Argument argument(guid);
  return db ? isThere(kFindActivity, std::span(&argument, 1)) : false;
}

std::optional<bool> WidgetDAO::isThere(std::string_view sql,
                                       std::span<const Argument> arguments) const {
  const FMDatabase::Budget budget(db.get());
  const auto row = db->executeQuery(sql, arguments);
  if (row && row->next()) return true;
  if (!row || row->failed()) return std::nullopt;
  return false;
}

std::optional<bool> WidgetDAO::intervalIsStored(const ActivityWrite& write) const {
  const Argument interval(write.newInterval);
  return isThere(kFindInterval, std::span(&interval, 1));
}

std::optional<bool> WidgetDAO::rowIsStored(const ActivityWrite& write, Moment moment) const {
  const Argument guid(write.guid);
  switch (write.kind) {
    case ActivityWrite::Kind::kSaved:
      return isThere(kFindActivity, std::span(&guid, 1));
    case ActivityWrite::Kind::kUpdated: {
      const std::array change{guid, Argument(static_cast<std::uint32_t>(write.state)),
                              Argument(write.start), Argument(write.updatedOn)};
      if (moment == Moment::kAfterCommit) return isThere(kFindChangeOfThen, change);
      return isThere(kFindChange, std::span(change).first(3));
    }
    case ActivityWrite::Kind::kRemoved: {
      const std::optional<bool> visible = isThere(kFindVisible, std::span(&guid, 1));
      return visible ? std::optional(!*visible) : std::nullopt;
    }
  }
  return std::nullopt;
}

// On a connection of its own, which undoes what an unfinished commit left.
TransactionEnd::Outcome WidgetDAO::readAgain(const ActivityWrite& write) {
  constexpr int kAttempts = 3;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    db->close();
    if (!db->open()) continue;
    // By then another may have changed the row; the interval's guid is nobody else's.
    const std::optional<bool> stored =
        write.newInterval ? intervalIsStored(write) : rowIsStored(write, Moment::kAfterCommit);
    if (stored) {
      return *stored ? TransactionEnd::Outcome::kStored : TransactionEnd::Outcome::kNotStored;
    }
  }
  return TransactionEnd::Outcome::kUnknown;
}

void WidgetDAO::tell(const StoreEvent& event) const {
  if (listener_) listener_(event);
}

Date WidgetDAO::dateWithZeroSeconds(Date date) const {
  return wholeMinute(date, platform_.calendar);
}

std::optional<Date> WidgetDAO::minuteOf(const std::optional<Date>& date) const {
  if (!date) return std::nullopt;
  return dateWithZeroSeconds(*date);
}

void WidgetDAO::activityUpdated() {
  platform_.settings.setBool(true, "widgetUpdatedActivity");
  const SaveOutcome saved = platform_.settings.synchronize();
  if (!saved.isSaved()) tell(FlagNotRaised{saved.why});
}

std::string WidgetDAO::generateGUID() {
  return newUuid(platform_.random);
}

}  // namespace brevant
