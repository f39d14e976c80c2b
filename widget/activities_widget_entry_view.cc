// SPDX-License-Identifier: MIT
#include "widget/activities_widget_entry_view.h"

#include "widget/medium_running_activity_view.h"
#include "widget/small_running_activity_view.h"

namespace brevant {

View ActivitiesWidgetEntryView::body(const Platform& platform,
                                     const Environment& environment) const {
  if (environment.widgetFamily == WidgetFamily::kSystemMedium) {
    return MediumRunningActivityView{environment.colorScheme, model}.body(platform);
  }
  return SmallRunningActivityView{model}.body(platform);
}

}  // namespace brevant
