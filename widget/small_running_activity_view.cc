// SPDX-License-Identifier: MIT
#include "widget/small_running_activity_view.h"

#include "widget/elapsed_time.h"

namespace brevant {
namespace {

View runningActivity(const WidgetContent& model, SystemVersion version) {
  return vstack({.alignment = HorizontalAlignment::kLeading, .spacing = 2},
                {
                    hstack({.spacing = 6},
                           {
                               image(model.icon),
                               text(model.name)
                                   .font(TextStyle::kTitle3)
                                   .monospacedDigit()
                                   .lineLimit(1)
                                   .minimumScaleFactor(0.5),
                           }),
                    spacer(),
                    mainTimer(model, version)
                        .font(TextStyle::kLargeTitle)
                        .monospacedDigit()
                        .lineLimit(1)
                        .minimumScaleFactor(0.5),
                    secondaryTimer(model, version),
                })
      .frame({.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::kLeading})
      .padding(16);
}

}  // namespace

View SmallRunningActivityView::body(const Platform& platform) const {
  const SystemVersion version = platform.process.systemVersion();
  const View content =
      model ? runningActivity(*model, version) : noRunningActivity(platform.bundle);
  return onWidgetBackground(content, version);
}

}  // namespace brevant
