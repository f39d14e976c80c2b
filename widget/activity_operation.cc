#include "widget/activity_operation.h"

#include <algorithm>

#include "manager/widget_manager.h"

namespace brevant {

void performOperation(const Platform& platform, std::string_view activityId,
                      std::string_view operation) {
  const auto manager = WidgetManager::open(platform);
  const ActivityList activities = manager->findActivities();
  const auto found =
      std::find_if(activities.begin(), activities.end(),
                   [&](const ActivityRef& each) { return each->guid == activityId; });
  if (found == activities.end()) return;
  if (operation == "stop") {
    manager->stopActivity(**found);
  } else if (operation == "pause") {
    manager->pauseActivity(**found);
  }
}

}  // namespace brevant
