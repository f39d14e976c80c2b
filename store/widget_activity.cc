// SPDX-License-Identifier: MIT
#include "store/widget_activity.h"

#include <algorithm>

#include "store/equality.h"
#include "store/fm_result_set.h"

namespace brevant {
namespace {

bool areEqual(const std::optional<IntervalList>& a, const std::optional<IntervalList>& b) {
  return a && b && std::ranges::equal(*a, *b, [](const auto& one, const auto& other) {
           return one->isEqual(*other);
         });
}

}  // namespace

std::shared_ptr<WidgetActivity> WidgetActivity::activityFromResultSet(FMResultSet& row) {
  auto activity = std::make_shared<WidgetActivity>();
  activity->guid = row.stringForColumn("guid");
  activity->categoryGuid = row.stringForColumn("category_guid");
  activity->start = row.dateForColumn("start_date");
  activity->comment = row.stringForColumn("comment");
  activity->state = row.intForColumn("state");
  return activity;
}

std::shared_ptr<WidgetActivity> WidgetActivity::copy() const {
  auto activity = std::make_shared<WidgetActivity>(*this);
  activity->revision = 0;
  activity->updatedOn = 0;
  return activity;
}

std::string WidgetActivity::description() const {
  const std::string date = start ? std::to_string(secondsSince1970(*start)) : "(null)";
  return "guid=" + guid.value_or("(null)") + ", start=" + date + ", state=" + std::to_string(state);
}

bool WidgetActivity::isEqual(const WidgetActivity& other) const {
  if (this == &other) return true;
  return arePresentAndEqual(guid, other.guid) &&
         arePresentAndEqual(categoryGuid, other.categoryGuid) && state == other.state &&
         (state != kStateRunning || arePresentAndEqual(start, other.start)) &&
         areEqual(intervals, other.intervals);
}

}  // namespace brevant
