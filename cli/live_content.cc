// SPDX-License-Identifier: MIT
#include "cli/live_content.h"

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/words.h"
#include "live/activity_attribute.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

ActivityRef findRunning(const WidgetManager& manager, const std::string& guid) {
  for (const ActivityRef& activity : manager.findRunningActivities()) {
    if (activity->guid == guid) return activity;
  }
  return nullptr;
}

}  // namespace

std::variant<std::string, ExitCode> runningContent(Context& context, const std::string& guid) {
  if (const auto trouble = missingDatabase(context.platform.files)) return context.refuse(*trouble);
  const auto manager = context.openForReading();
  const ActivityRef activity = findRunning(*manager, guid);
  const TypeRef type =
      activity && activity->categoryGuid ? manager->findById(*activity->categoryGuid) : nullptr;
  if (const ExitCode read = context.doneReading(); read != ExitCode::kDone) return read;
  if (!activity) return context.refuse(tr("there is no running activity %1", guid));
  if (!type) return context.refuse(tr("the category of the running activity is not there"));
  if (!activity->start) return context.refuse(tr("it is not known when the activity was started"));

  const Seconds start(secondsSince1970(*activity->start) - kReferenceDate);
  const ContentState state{guid,        type->name.value_or(""), type->imageGuid.value_or(""),
                           type->color, ReferenceDate(start),    ""};
  std::optional<std::string> coded = state.encoded(context.platform.coder);
  if (!coded) return context.refuse(tr("the content state cannot be encoded"));
  return std::move(*coded);
}

}  // namespace brevant
