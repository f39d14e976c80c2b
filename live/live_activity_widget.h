// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "live/activity_attribute.h"
#include "manager/widget_manager.h"
#include "platform/environment.h"
#include "platform/platform.h"
#include "platform/view.h"
#include "widget/widgets_collection.h"

namespace brevant {

struct DynamicIsland {
  struct Expanded {
    View leading;
    View trailing;
    View bottom;
  };
  Expanded expanded;
  View compactLeading;
  View compactTrailing;
  View minimal;
};

struct LiveActivityPresentation {
  View lockScreen;
  DynamicIsland dynamicIsland;
};

// The Live Activity on the lock screen and in the Dynamic Island. It opens a manager when it is
// made and keeps it, for the icons. One thread at a time.
class LiveActivityWidget {
 public:
  explicit LiveActivityWidget(const Platform& platform);

  std::string kind = "LiveActivityWidget";

  [[nodiscard]] BundledWidget bundled() const { return {kind}; }

  [[nodiscard]] LiveActivityPresentation body(const ContentState& state,
                                              ColorScheme colorScheme) const;

 private:
  [[nodiscard]] DynamicIsland dynamicIsland(const ContentState& state,
                                            const ImageRef& picture) const;

  Platform platform_;
  std::unique_ptr<WidgetManager> activityManager_;
};

}  // namespace brevant
