// SPDX-License-Identifier: MIT
#include "cli/reminder_actions.h"

#include <algorithm>
#include <memory>

#include "cli/change.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/other_program.h"
#include "cli/reminder_schedule.h"
#include "cli/words.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"
#include "platform/clock.h"
#include "platform/linux/durable_file.h"
#include "platform/linux/shared_settings.h"
#include "platform/notifications.h"

namespace brevant {
namespace {

// A button keeps the activity that it was made for: what runs may be another by the time it is
// pressed.
constexpr std::string_view kPause = "pause ";
constexpr std::string_view kStop = "stop ";
constexpr std::string_view kSnooze = "snooze";
constexpr std::string_view kOpen = "default";  // a click on the notification itself
constexpr Seconds kSnoozed{600};

// The one that the widget shows.
ActivityRef earliest(const ActivityList& running) {
  const auto found =
      std::min_element(running.begin(), running.end(),
                       [](const auto& a, const auto& b) { return a->start < b->start; });
  return found == running.end() ? nullptr : *found;
}

// "Pause", or "Pause Reading" where another activity could be meant as well.
std::string title(const Context& context, const std::string& operation,
                  const std::optional<std::string>& name) {
  const Bundle& bundle = context.platform.bundle;
  if (!name) return bundle.localizedString(operation);
  std::string text = bundle.localizedString(operation + " %@");
  const std::size_t place = text.find("%@");
  return place == std::string::npos ? text : text.replace(place, 2, *name);
}

std::vector<NotificationButton> buttons(const Context& context) {
  const Bundle& bundle = context.platform.bundle;
  std::vector<NotificationButton> result{{std::string(kOpen), bundle.localizedString("Open")}};
  const auto manager = WidgetManager::open(context.platform);
  const ActivityList running = manager->findRunningActivities();
  if (const ActivityRef shown = earliest(running); shown && shown->guid) {
    const TypeRef category =
        shown->categoryGuid ? manager->findById(*shown->categoryGuid) : nullptr;
    const std::optional<std::string> name =
        running.size() > 1 && category ? category->name : std::nullopt;
    result.push_back({std::string(kPause) + *shown->guid, title(context, "Pause", name)});
    result.push_back({std::string(kStop) + *shown->guid, title(context, "Stop", name)});
  }
  result.push_back({std::string(kSnooze), bundle.localizedString("Snooze 10 min")});
  return result;
}

void snooze(Context& context) {
  const Date due = context.platform.clock.now() + kSnoozed;
  const auto manager = WidgetManager::open(context.platform);
  const NotificationRequest request{
      "snooze-" + manager->generateGUID(), manager->reminderContent(),
      CalendarTrigger{context.platform.calendar.components(due), false, due}};
  context.platform.notifications.add(request, [&context](const SaveOutcome& outcome) {
    if (!outcome.why.empty()) context.warn(outcome.why);
  });
}

void openHost(const Context& context) {
  const std::optional<std::string> host = desktopProgram();
  const std::string why = host ? startBeside(*host, {"--container", context.container})
                               : tr("brevant-desktop is missing");
  if (!why.empty()) context.warn(why);
}

void change(Context& context, const std::string& operation) {
  const bool stops = operation.starts_with(kStop);
  if (!stops && !operation.starts_with(kPause)) return;
  const std::string guid = operation.substr((stops ? kStop : kPause).size());
  const ChangeResult result = changeActivity(context, guid, stops ? Change::kStop : Change::kPause);
  if (const auto* refusal = std::get_if<NotChanged>(&result)) context.warn(refusal->why);
}

void perform(Context& context, const std::string& operation) {
  if (operation == kOpen)
    openHost(context);
  else if (operation == kSnooze)
    snooze(context);
  else
    change(context, operation);
}

// Where what reminders depend on is kept.
std::vector<WatchedFile> files(const Context& context) {
  const std::string container = containerDirectory(context.platform.files).value_or("");
  const std::string database = container + '/' + kDatabaseFile;
  const std::string settings = settingsPath(container);
  return {{settings, WatchedFile::Written::kAtOnce},
          {linkTarget(settings), WatchedFile::Written::kAtOnce},
          {database, WatchedFile::Written::kInPlace},
          {database + "-wal", WatchedFile::Written::kInPlace}};
}

}  // namespace

NotificationActions reminderActions(Context& context) {
  const auto schedule = std::make_shared<ReminderSchedule>(context.platform);
  return {[&context] { return buttons(context); },
          [&context](const std::string& operation) { perform(context, operation); },
          [schedule] { return schedule->keep(); }, files(context)};
}

}  // namespace brevant
