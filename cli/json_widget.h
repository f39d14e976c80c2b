// SPDX-License-Identifier: MIT

// Widgets, timelines and Live Activities in the form that widget hosts read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/answer.h"
#include "live/live_activity_widget.h"
#include "platform/environment.h"
#include "platform/image_codec.h"
#include "platform/live_activities.h"
#include "platform/timeline.h"
#include "widget/running_widget.h"
#include "widget/widgets_collection.h"

namespace brevant {

std::string widgetsJson(const std::vector<BundledWidget>& widgets);

// "null" for a timeline that was not delivered.
Answer timelineJson(const StaticConfiguration& widget,
                    const std::optional<Timeline<WidgetContent>>& timeline, ColorScheme colorScheme,
                    const ImageCodec& codec);
Answer entryJson(const StaticConfiguration& widget, const WidgetContent& entry,
                 ColorScheme colorScheme, const ImageCodec& codec);

std::string liveActivitiesJson(const std::vector<LiveActivity>& activities);
std::string liveActivityIdJson(const std::string& id);
Answer presentationJson(const std::string& kind, const LiveActivity& activity,
                        const LiveActivityPresentation& presentation, const ImageCodec& codec);

}  // namespace brevant
