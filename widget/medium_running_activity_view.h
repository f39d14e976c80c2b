// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "platform/environment.h"
#include "platform/platform.h"
#include "platform/view.h"
#include "widget/widget_content.h"

namespace brevant {

// The medium widget: the category over the time, and the controls beside them. The setting
// "pauseEnabled" can take the pause control away.
struct MediumRunningActivityView {
  ColorScheme colorScheme = ColorScheme::kLight;
  std::optional<WidgetContent> model;

  [[nodiscard]] View body(const Platform& platform) const;
};

}  // namespace brevant
