// SPDX-License-Identifier: MIT

// What the lock screen and the Dynamic Island have in common.
#pragma once

#include <string>

#include "live/activity_attribute.h"
#include "manager/widget_manager.h"
#include "platform/platform.h"
#include "platform/view.h"

namespace brevant {

// The category's icon, looked up once for all places that show it: it may have megabytes. A missing
// image, and a colour beyond a signed 32-bit integer, is a fatal error: the main application never
// sends such values.
ImageRef activityIcon(const WidgetManager& manager, const ContentState& state);

// A picture, `side` by `side` points.
View square(const ImageRef& picture, double side);

// The time since the start, as the system counts it.
View timerText(const ContentState& state);

// Drawn as outdated while a control's intent runs, where the system knows how.
View invalidatable(const View& view, const Platform& platform);

// Controls labelled with a resource image of `side` by `side` points; a missing image is a fatal
// error.
View pauseControl(const Platform& platform, const ContentState& state, const std::string& imageName,
                  double side);
View stopControl(const Platform& platform, const ContentState& state, double side);

}  // namespace brevant
