// SPDX-License-Identifier: MIT
#include "cli/status.h"

#include <map>
#include <string_view>

#include "manager/widget_manager.h"

namespace brevant {
StatusItem statusItem(const WidgetActivity& activity, const WidgetType* type, Date now) {
  StatusItem item;
  item.isRunning = activity.state == kStateRunning;
  item.guid = activity.guid;
  item.categoryGuid = activity.categoryGuid;
  item.start = activity.start;
  item.hasCategory = type != nullptr;
  if (type != nullptr) {
    item.name = type->name;
    item.color = type->color;
  }
  if (item.isRunning && activity.start)
    item.elapsed = wholeSeconds((now - *activity.start).count());
  item.total = item.elapsed;
  if (!activity.intervals) return item;
  for (const auto& interval : *activity.intervals) {
    item.total = saturatingSum(item.total, interval->duration());
  }
  return item;
}

Status readStatus(WidgetManager& manager, const Clock& clock) {
  const ActivityList activities = manager.findActivities();
  TypeList types;
  if (!activities.empty()) types = manager.findAllTypes();
  std::map<std::string_view, const WidgetType*> byGuid;  // of equal guids the first counts
  for (const TypeRef& type : types) {
    if (type->guid) byGuid.try_emplace(*type->guid, type.get());
  }

  Status status;
  const Date now = clock.now();
  for (const ActivityRef& activity : activities) {
    const WidgetType* type = nullptr;
    if (activity->categoryGuid) {
      const auto found = byGuid.find(*activity->categoryGuid);
      if (found != byGuid.end()) type = found->second;
    }
    auto& list = activity->state == kStateRunning ? status.running : status.paused;
    list.push_back(statusItem(*activity, type, now));
  }
  return status;
}

}  // namespace brevant
