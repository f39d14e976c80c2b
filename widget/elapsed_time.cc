// SPDX-License-Identifier: MIT
#include "widget/elapsed_time.h"

namespace brevant {
namespace {

// Timers everywhere but on 16.0, where the texts are relative on purpose.
DateStyle timerStyle(SystemVersion version) {
  const bool isRelative = version >= kRelativeTimers && version < kLiveActivities;
  return isRelative ? DateStyle::kRelative : DateStyle::kTimer;
}

}  // namespace

View mainTimer(const WidgetContent& model, SystemVersion version) {
  return dateText(model.start, timerStyle(version));
}

std::optional<View> secondaryTimer(const WidgetContent& model, SystemVersion version) {
  if (model.duration == 0) return std::nullopt;
  const Seconds closed(static_cast<double>(model.duration));
  return dateText(model.start - closed, timerStyle(version))
      .font(TextStyle::kSubheadline)
      .monospacedDigit()
      .lineLimit(1)
      .opacity(0.6);
}

View noRunningActivity(const Bundle& bundle) {
  return text(bundle.localizedString("complication.no_running"));
}

View onWidgetBackground(const View& view, SystemVersion version) {
  return version >= kInteractiveWidgets ? view.containerBackground({}) : view;
}

}  // namespace brevant
