// SPDX-License-Identifier: MIT
#include "widget/widgets_collection.h"

#include "platform/process_info.h"

namespace brevant {

std::vector<BundledWidget> WidgetsCollection::body() const {
  std::vector<BundledWidget> widgets;
  StaticConfiguration running = RunningWidget(platform_).body();
  widgets.push_back({running.kind, std::move(running)});
  if (platform_.process.systemVersion() >= kLiveActivities) {
    widgets.push_back(liveActivityWidget_());
  }
  return widgets;
}

}  // namespace brevant
