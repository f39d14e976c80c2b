// SPDX-License-Identifier: MIT
#include "widget/running_widget.h"

#include "widget/activities_widget_entry_view.h"

namespace brevant {

StaticConfiguration RunningWidget::body() const {
  const auto content = [platform = platform_](const WidgetContent& entry,
                                              const Environment& environment) {
    return ActivitiesWidgetEntryView{entry}
        .body(platform, environment)
        .frame({.maxWidth = kInfinity, .maxHeight = kInfinity});
  };
  return {
      .kind = kind,
      .provider = std::make_unique<Provider>(platform_, WidgetManager::open(platform_, listener_)),
      .content = content,
      .displayName = "Runnning activity",  // sic: what the gallery has always shown
      .description = "Displays most recent started activity",
      .supportedFamilies = {WidgetFamily::kSystemSmall, WidgetFamily::kSystemMedium},
  };
}

}  // namespace brevant
