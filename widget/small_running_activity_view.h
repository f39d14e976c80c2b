// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "platform/platform.h"
#include "platform/view.h"
#include "widget/widget_content.h"

namespace brevant {

// The small widget: the category over the time, without controls.
struct SmallRunningActivityView {
  std::optional<WidgetContent> model;

  [[nodiscard]] View body(const Platform& platform) const;
};

}  // namespace brevant
