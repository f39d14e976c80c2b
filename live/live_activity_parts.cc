// SPDX-License-Identifier: MIT
#include "live/live_activity_parts.h"

#include <cstdint>
#include <limits>

#include "live/stop_activity_live_intent.h"
#include "platform/fatal_error.h"
#include "widget/control.h"
#include "widget/resource_image.h"

namespace brevant {
namespace {

View imageControl(const Platform& platform, const ContentState& state, const char* operation,
                  DeepLinkAction action, const std::string& imageName, double side) {
  return control(platform.process.systemVersion(),
                 StopActivityLiveIntent(state.guid, operation).value(),
                 {DeepLinkType::kLiveActivity, action, state.guid},
                 square(resourceImage(platform.bundle, imageName), side));
}

}  // namespace

View square(const ImageRef& picture, double side) {
  return image(picture).resizable().frame({.width = side, .height = side});
}

ImageRef activityIcon(const WidgetManager& manager, const ContentState& state) {
  if (state.color > std::numeric_limits<std::int32_t>::max()) {
    fatalError("the Live Activity's color " + std::to_string(state.color) +
               " is beyond a signed 32-bit integer");
  }
  ImageRef icon = manager.imageForGuid(state.icon, state.color);
  if (!icon) fatalError("the Live Activity's icon has no image");
  return icon;
}

View timerText(const ContentState& state) {
  return dateText(dateOf(state.start), DateStyle::kTimer);
}

View invalidatable(const View& view, const Platform& platform) {
  return platform.process.systemVersion() >= kInteractiveWidgets ? view.invalidatableContent()
                                                                 : view;
}

View pauseControl(const Platform& platform, const ContentState& state, const std::string& imageName,
                  double side) {
  return imageControl(platform, state, "pause", DeepLinkAction::kPause, imageName, side);
}

View stopControl(const Platform& platform, const ContentState& state, double side) {
  return imageControl(platform, state, "stop", DeepLinkAction::kStop, "stop_widget@2x.png", side);
}

}  // namespace brevant
