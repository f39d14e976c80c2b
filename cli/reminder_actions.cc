// SPDX-License-Identifier: MIT
#include "cli/reminder_actions.h"

#include "cli/change.h"
#include "cli/context.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"

namespace brevant {
namespace {

// A button keeps the activity that it was made for: what runs may be another by the time it is
// pressed.
constexpr std::string_view kStop = "stop ";
constexpr std::string_view kPause = "pause ";

std::vector<NotificationButton> buttons(const Context& context) {
  const ActivityList running = WidgetManager::open(context.platform)->findRunningActivities();
  if (running.empty() || !running.front()->guid) return {};
  const std::string& guid = *running.front()->guid;
  const Bundle& bundle = context.platform.bundle;
  return {{std::string(kStop) + guid, bundle.localizedString("Stop")},
          {std::string(kPause) + guid, bundle.localizedString("Pause")}};
}

void perform(Context& context, const std::string& operation) {
  const bool stops = operation.starts_with(kStop);
  if (!stops && !operation.starts_with(kPause)) return;
  const std::string guid = operation.substr((stops ? kStop : kPause).size());
  const ChangeResult result = changeActivity(context, guid, stops ? Change::kStop : Change::kPause);
  if (const auto* refusal = std::get_if<NotChanged>(&result)) context.warn(refusal->why);
}

}  // namespace

NotificationActions reminderActions(Context& context) {
  return {[&context] { return buttons(context); },
          [&context](const std::string& operation) { perform(context, operation); }};
}

}  // namespace brevant
