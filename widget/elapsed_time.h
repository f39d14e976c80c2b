// SPDX-License-Identifier: MIT

// What the small and the medium widget have in common.
#pragma once

#include <optional>

#include "platform/bundle.h"
#include "platform/process_info.h"
#include "platform/view.h"
#include "widget/widget_content.h"

namespace brevant {

// The time of the running stretch.
View mainTimer(const WidgetContent& model, SystemVersion version);

// The time of the whole activity; absent when it has no earlier stretches.
std::optional<View> secondaryTimer(const WidgetContent& model, SystemVersion version);

// In place of everything where there is no entry.
View noRunningActivity(const Bundle& bundle);

// Lets the host's own background show. Interactive widgets must say so; older ones do anyway.
View onWidgetBackground(const View& view, SystemVersion version);

}  // namespace brevant
