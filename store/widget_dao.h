// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "store/argument.h"
#include "store/store_events.h"
#include "store/widget_activity.h"
#include "store/widget_type.h"

namespace brevant {

class FMDatabase;
class Transaction;

// The only code that speaks SQL: reads the visible categories and the unfinished activities, and
// writes an activity's changes, each in one exclusive transaction or in that of its caller. It
// never creates a file or a table. Owns its connection, which closes with it. One thread at a time.
//
// Nothing is reported to the caller: a failed query is an empty list; a failed write is logged and
// rolled back, leaves the file as it was and raises no change flag. Whoever has to know listens.
class WidgetDAO {
 public:
  // Without a file at `path` the object has no connection and creates none.
  WidgetDAO(const Platform& platform, const std::optional<std::string>& path,
            StoreListener listener = {});
  ~WidgetDAO();
  WidgetDAO(const WidgetDAO&) = delete;
  WidgetDAO& operator=(const WidgetDAO&) = delete;

  // All visible categories and groups, flat, in `order_num` order; no children are filled.
  [[nodiscard]] TypeList findTypes() const;

  // Running and paused activities with their intervals: running first, latest start first; then
  // those without intervals; then the one paused last first.
  ActivityList findActivities() const;

  // The same, absent when a statement failed and rows may be missing. While the last such answer
  // was absent, no activity is changed or removed: nothing is written after a failed read.
  std::optional<ActivityList> readActivities() const;

  // The closed stretches of one activity as they are stored; absent likewise.
  [[nodiscard]] std::optional<IntervalList> readIntervals(
      const std::optional<std::string>& activityGuid) const;

  // Whether there is an activity of that guid, finished and deleted ones included; absent likewise.
  [[nodiscard]] std::optional<bool> hasActivity(const std::string& guid) const;

  // Stores a new activity; it and its intervals get new guids.
  void save(WidgetActivity& activity);

  // Stores a changed activity; intervals without a guid are new and get one.
  void update(WidgetActivity& activity);

  // Soft deletion of the activity and its intervals.
  void removeLogSilently(const WidgetActivity& activity);

  // The same date with seconds and fractions cut off in the local calendar.
  [[nodiscard]] Date dateWithZeroSeconds(Date date) const;

  // Raises the flag by which the main application reloads.
  void activityUpdated();

  [[nodiscard]] std::string generateGUID();

  // The connection; null when there was no file.
  std::unique_ptr<FMDatabase> db;

 private:
  friend class Transaction;

  // Rows as far as they could be read.
  template <typename List>
  struct Rows {
    List list;
    bool failed = false;
  };
  [[nodiscard]] Rows<ActivityList> activities() const;
  [[nodiscard]] Rows<IntervalList> intervals(const std::optional<std::string>& activityGuid) const;
  [[nodiscard]] std::optional<bool> isThere(std::string_view sql,
                                            std::span<const Argument> arguments) const;
  // Within the transaction a trigger of the main application's may own the time of the change;
  // after it that time tells a change from the row that was like it before.
  enum class Moment { kBeforeCommit, kAfterCommit };
  [[nodiscard]] std::optional<bool> rowIsStored(const ActivityWrite& write, Moment moment) const;
  [[nodiscard]] std::optional<bool> intervalIsStored(const ActivityWrite& write) const;
  TransactionEnd::Outcome readAgain(const ActivityWrite& write);

  void insertInterval(Transaction& transaction, const WidgetActivity& activity,
                      WidgetInterval& interval);
  void finish(Transaction& transaction, ActivityWrite write);
  void tell(const StoreEvent& event) const;
  [[nodiscard]] std::optional<Date> minuteOf(const std::optional<Date>& date) const;

  Platform platform_;
  StoreListener listener_;
  Transaction* transaction_ = nullptr;  // the one that is open
  mutable bool lastReadFailed_ = false;
};

}  // namespace brevant
