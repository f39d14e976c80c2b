// SPDX-License-Identifier: MIT
#include "widget/medium_running_activity_view.h"

#include "platform/shared_settings.h"
#include "widget/control.h"
#include "widget/elapsed_time.h"
#include "widget/stop_activity_intent.h"

namespace brevant {
namespace {

bool isPauseEnabled(const SharedSettings& settings) {
  constexpr const char* kKey = "pauseEnabled";
  return settings.object(kKey) ? settings.boolean(kKey) : true;
}

View controlLabel(const std::string& symbol, ColorScheme colorScheme) {
  const double grey = colorScheme == ColorScheme::kLight ? 0.95 : 0.2;
  return systemImage(symbol)
      .frame({.width = 18, .height = 18})
      .padding(4)
      .background({.cornerRadius = 20}, Color::rgb(grey, grey, grey, 1));
}

View pauseControl(const std::string& guid, SystemVersion version, ColorScheme colorScheme) {
  return control(version, StopActivityIntent(guid, "pause").value(),
                 {DeepLinkType::kRunning, DeepLinkAction::kPause, guid},
                 controlLabel("pause.fill", colorScheme));
}

View stopControl(const std::string& guid, SystemVersion version, ColorScheme colorScheme) {
  return control(version, StopActivityIntent(guid, "stop").value(),
                 {DeepLinkType::kRunning, DeepLinkAction::kStop, guid},
                 controlLabel("stop.fill", colorScheme));
}

View categoryRow(const WidgetContent& model) {
  return hstack({.spacing = 6},
                {
                    image(model.icon).resizable().frame({.width = 20, .height = 20}),
                    text(model.name).font(TextStyle::kBody).lineLimit(1),
                });
}

View timers(const WidgetContent& model, SystemVersion version) {
  constexpr SystemFont kTimerFont{44, FontWeight::kRegular, FontDesign::kDefault};
  return vstack({.alignment = HorizontalAlignment::kLeading, .spacing = 4},
                {
                    mainTimer(model, version)
                        .font(kTimerFont)
                        .fontWeight(FontWeight::kSemibold)
                        .monospacedDigit()
                        .lineLimit(1)
                        .minimumScaleFactor(0.5),
                    secondaryTimer(model, version),
                });
}

}  // namespace

View MediumRunningActivityView::body(const Platform& platform) const {
  const SystemVersion version = platform.process.systemVersion();
  if (!model) return onWidgetBackground(noRunningActivity(platform.bundle), version);

  std::optional<View> pause;
  if (isPauseEnabled(platform.settings)) pause = pauseControl(model->guid, version, colorScheme);

  // A long name has the whole width.
  const View content =
      vstack({.alignment = HorizontalAlignment::kLeading, .spacing = 4},
             {
                 categoryRow(*model),
                 hstack({.spacing = 12},
                        {
                            timers(*model, version),
                            spacer(),
                            hstack({.spacing = 12},
                                   {
                                       pause,
                                       stopControl(model->guid, version, colorScheme),
                                   }),
                        }),
             })
          .padding(16);
  return onWidgetBackground(content, version);
}

}  // namespace brevant
