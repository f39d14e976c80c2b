// SPDX-License-Identifier: MIT
#pragma once

#include "live/activity_attribute.h"
#include "manager/widget_manager.h"
#include "platform/environment.h"
#include "platform/platform.h"
#include "platform/view.h"

namespace brevant {

// The Live Activity's banner on the lock screen.
struct LockScreenLiveActivityView {
  ColorScheme colorScheme = ColorScheme::kLight;
  ContentState state;
  const WidgetManager& activityManager;  // for the icon

  [[nodiscard]] View body(const Platform& platform) const;
};

}  // namespace brevant
