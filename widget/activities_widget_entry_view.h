// SPDX-License-Identifier: MIT
#pragma once

#include "platform/environment.h"
#include "platform/platform.h"
#include "platform/view.h"
#include "widget/widget_content.h"

namespace brevant {

// An entry in the view of its family.
struct ActivitiesWidgetEntryView {
  WidgetContent model;

  [[nodiscard]] View body(const Platform& platform, const Environment& environment) const;
};

}  // namespace brevant
