#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/platform.h"
#include "store/widget_activity.h"
#include "store/widget_type.h"

namespace brevant {

class FMDatabase;

// The only code that speaks SQL: reads the visible categories and the unfinished activities, and
// writes an activity's changes, each in one exclusive transaction. It never creates a file or a
// table. Owns its connection, which closes with it. One thread at a time.
//
// Nothing is reported to the caller: a failed query is an empty list; a failed write is logged and
// rolled back, leaves the file as it was and raises no change flag.
class WidgetDAO {
 public:
  // Without a file at `path` the object has no connection and creates none.
  WidgetDAO(const Platform& platform, const std::optional<std::string>& path);
  ~WidgetDAO();
  WidgetDAO(const WidgetDAO&) = delete;
  WidgetDAO& operator=(const WidgetDAO&) = delete;

  // All visible categories and groups, flat, in `order_num` order; no children are filled.
  [[nodiscard]] TypeList findTypes() const;

  // Running and paused activities with their intervals: running first, latest start first; then
  // those without intervals; then the one paused last first.
  ActivityList findActivities() const;

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
  class Write;
  [[nodiscard]] IntervalList findIntervals(const std::optional<std::string>& activityGuid) const;
  void insertInterval(Write& write, const WidgetActivity& activity, WidgetInterval& interval);
  void finish(Write& write);
  [[nodiscard]] std::optional<Date> minuteOf(const std::optional<Date>& date) const;

  Platform platform_;
};

}  // namespace brevant
