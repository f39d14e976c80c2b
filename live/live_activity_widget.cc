// SPDX-License-Identifier: MIT
#include "live/live_activity_widget.h"

#include "live/live_activity_parts.h"
#include "live/lock_screen_live_activity_view.h"

namespace brevant {

LiveActivityWidget::LiveActivityWidget(const Platform& platform)
    : platform_(platform), activityManager_(WidgetManager::open(platform)) {}

LiveActivityPresentation LiveActivityWidget::body(const ContentState& state,
                                                  ColorScheme colorScheme) const {
  const ImageRef icon = activityIcon(*activityManager_, state);
  const LockScreenLiveActivityView lockScreen{colorScheme, state, icon};
  return {lockScreen.body(platform_), dynamicIsland(state, icon)};
}

DynamicIsland LiveActivityWidget::dynamicIsland(const ContentState& state,
                                                const ImageRef& picture) const {
  const View timer = invalidatable(timerText(state)
                                       .font(TextStyle::kTitle)
                                       .monospacedDigit()
                                       .bold()
                                       .minimumScaleFactor(0.7)
                                       .lineLimit(1)
                                       .padding(),
                                   platform_);

  // The island is dark in every colour scheme.
  const View controls = hstack({
      pauseControl(platform_, state, "pause_widget@2x.png", 50),
      stopControl(platform_, state, 50),
  });

  const View category =
      label(text(state.typeName).font(TextStyle::kBody).lineLimit(1).minimumScaleFactor(0.7),
            square(picture, 16))
          .padding();

  const View icon = square(picture, 20);
  return {
      .expanded = {.leading = timer, .trailing = controls, .bottom = category},
      .compactLeading = hstack({text("  "), icon, text(state.typeName)}),
      .compactTrailing = timerText(state),
      .minimal = icon,
  };
}

}  // namespace brevant
