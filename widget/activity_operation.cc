// SPDX-License-Identifier: MIT
#include "widget/activity_operation.h"

#include <algorithm>
#include <utility>

#include "manager/widget_manager.h"

namespace brevant {

namespace {

void perform(WidgetManager& manager, std::string_view activityId, std::string_view operation) {
  const ActivityList activities = manager.findActivities();
  const auto found =
      std::find_if(activities.begin(), activities.end(),
                   [&](const ActivityRef& each) { return each->guid == activityId; });
  if (found == activities.end()) return;
  if (operation == "stop") {
    manager.stopActivity(**found);
  } else {
    manager.pauseActivity(**found);
  }
}

}  // namespace

void performOperation(const Platform& platform, std::string_view activityId,
                      std::string_view operation, StoreListener listener) {
  if (operation != "stop" && operation != "pause") return;
  const auto manager = WidgetManager::open(platform, std::move(listener));
  manager->inOneTransaction([&] { perform(*manager, activityId, operation); });
}

}  // namespace brevant
