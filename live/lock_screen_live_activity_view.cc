// SPDX-License-Identifier: MIT
#include "live/lock_screen_live_activity_view.h"

#include "live/live_activity_parts.h"
#include "platform/bundle.h"

namespace brevant {
namespace {

View timer(const Platform& platform, const ContentState& state) {
  return invalidatable(timerText(state)
                           .font(TextStyle::kLargeTitle)
                           .monospacedDigit()
                           .bold()
                           .multilineTextAlignment(TextAlignment::kLeading)
                           .lineLimit(1),
                       platform);
}

View controls(const Platform& platform, const ContentState& state, ColorScheme colorScheme) {
  const char* const pauseImage =
      colorScheme == ColorScheme::kLight ? "pause_widget_light@2x.png" : "pause_widget@2x.png";
  return hstack(
      {.spacing = 0},
      {
          pauseControl(platform, state, pauseImage, 44).padding({.trailing = kDefaultSpace}),
          stopControl(platform, state, 44),
      });
}

View category(const ContentState& state, const ImageRef& icon) {
  return label(text(state.typeName).font(TextStyle::kTitle3).lineLimit(1).minimumScaleFactor(0.5),
               square(icon, 20));
}

View startTime(const Bundle& bundle, const ContentState& state) {
  return hstack({.spacing = 0},
                {
                    text(bundle.localizedString("From") + " : ").font(TextStyle::kFootnote),
                    dateText(dateOf(state.start), DateStyle::kTime).font(TextStyle::kFootnote),
                    text(" "),
                });
}

}  // namespace

View LockScreenLiveActivityView::body(const Platform& platform) const {
  const View topSpace = text(" ").font(SystemFont{.size = 10});
  return vstack({
                    topSpace,
                    hstack({timer(platform, state), controls(platform, state, colorScheme)}),
                    hstack({category(state, icon), startTime(platform.bundle, state)}),
                })
      .padding({.leading = 16, .bottom = 10, .trailing = 10});
}

}  // namespace brevant
