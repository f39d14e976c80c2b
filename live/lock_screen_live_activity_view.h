// SPDX-License-Identifier: MIT
#pragma once

#include "live/activity_attribute.h"
#include "platform/environment.h"
#include "platform/image.h"
#include "platform/platform.h"
#include "platform/view.h"

namespace brevant {

// The Live Activity's banner on the lock screen.
struct LockScreenLiveActivityView {
  ColorScheme colorScheme = ColorScheme::kLight;
  ContentState state;
  ImageRef icon;  // never null

  [[nodiscard]] View body(const Platform& platform) const;
};

}  // namespace brevant
