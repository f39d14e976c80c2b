#include <algorithm>

#include "cli/change.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/json_records.h"
#include "cli/status.h"
#include "cli/text_records.h"
#include "cli/text_time.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

struct Wording {
  Change change;
  const char* name;
  const char* done;
  const char* summary;
};

constexpr Wording kWordings[] = {
    {Change::kStop, "stop", "Stopped", "Stop an activity"},
    {Change::kPause, "pause", "Paused", "Pause an activity"},
    {Change::kResume, "resume", "Resumed", "Let a paused activity run again"},
};

ActivityList inState(const ActivityList& activities, std::int32_t state) {
  ActivityList result;
  std::copy_if(activities.begin(), activities.end(), std::back_inserter(result),
               [state](const ActivityRef& activity) {
                 return activity->state == state && activity->guid;  // else none could be written
               });
  return result;
}

// What a command without a guid means.
ActivityList meant(const ActivityList& activities, Change change) {
  ActivityList running = inState(activities, kStateRunning);
  const bool wantsPaused =
      change == Change::kResume || (change == Change::kStop && running.empty());
  return wantsPaused ? inState(activities, kStatePaused) : running;
}

ActivityList withGuid(const ActivityList& activities, const std::string& guid) {
  ActivityList result;
  for (const ActivityRef& activity : activities) {
    if (result.empty() && activity->guid == guid) result.push_back(activity);
  }
  return result;
}

StatusItem itemOf(WidgetManager& manager, const WidgetActivity& activity, Date now) {
  const TypeRef type = activity.categoryGuid ? manager.findById(*activity.categoryGuid) : nullptr;
  return statusItem(activity, type.get(), now);
}

ExitCode refuseNone(Context& context, const std::optional<std::string>& guid, Change change) {
  if (guid) return context.refuse("there is no running or paused activity " + *guid);
  if (change == Change::kResume) return context.refuse("nothing is paused");
  return context.refuse(change == Change::kStop ? "nothing is running or paused"
                                                : "nothing is running");
}

ExitCode refuseSeveral(Context& context, WidgetManager& manager, const ActivityList& candidates) {
  std::string line = "say which: ";
  for (const ActivityRef& activity : candidates) {
    const StatusItem item = itemOf(manager, *activity, context.platform.clock.now());
    if (activity != candidates.front()) line += ", ";
    line += item.guid.value_or("-") + " (" + nameText(item.name) + ')';
  }
  return context.refuse(line);
}

void tell(Context& context, const Wording& wording, const StatusItem& item, Changed changed) {
  if (context.options.json) return context.print(guidJson(item.guid.value_or("")));
  const std::string name = nameText(item.name);
  if (changed.removed) {
    context.printLine("Removed " + name + ": it was too short to be kept");
  } else if (wording.change == Change::kResume) {
    context.printLine(wording.done + (' ' + name));
  } else {
    context.printLine(wording.done + (' ' + name) + " after " + durationText(changed.total));
  }
}

ExitCode change(Context& context, const Wording& wording, const std::optional<std::string>& guid) {
  if (const auto trouble = missingDatabase(context.platform.files)) {
    return context.refuse(nothingChanged(*trouble));
  }
  auto manager = WidgetManager::open(context.platform);
  const ActivityList activities = manager->findActivities();
  if (const auto failure = context.log.failure()) return context.refuse(nothingChanged(*failure));

  const ActivityList candidates =
      guid ? withGuid(activities, *guid) : meant(activities, wording.change);
  if (candidates.empty()) return refuseNone(context, guid, wording.change);
  if (candidates.size() > 1) return refuseSeveral(context, *manager, candidates);

  WidgetActivity& activity = *candidates.front();
  if (wording.change == Change::kResume && activity.state == kStateRunning) {
    // It would begin a new stretch and lose the one that it is in.
    return context.refuse(nothingChanged("it is running already"));
  }
  const StatusItem item = itemOf(*manager, activity, context.platform.clock.now());
  const ChangeResult result = applyChange(context, std::move(manager), activity, wording.change);
  if (const auto* refusal = std::get_if<NotChanged>(&result)) return context.refuse(refusal->why);
  tell(context, wording, item, std::get<Changed>(result));
  return ExitCode::kDone;
}

ExitCode start(Context& context, const std::string& category) {
  if (const auto trouble = missingDatabase(context.platform.files)) {
    return context.refuse(nothingChanged(*trouble));
  }
  auto manager = WidgetManager::open(context.platform);
  TypeRef type = manager->findById(category);
  if (!type && !context.log.failure()) type = manager->findByName(category);
  if (const auto failure = context.log.failure()) return context.refuse(nothingChanged(*failure));
  if (!type) return context.refuse("there is no category " + category);
  if (dynamic_cast<const WidgetGroup*>(type.get()) != nullptr) {
    return context.refuse(category + " is a group: name one of its categories");
  }
  if (!type->guid) return context.refuse("the category " + category + " has no guid");

  const StartResult result = startActivity(context, std::move(manager), *type->guid);
  if (const auto* refusal = std::get_if<NotChanged>(&result)) return context.refuse(refusal->why);
  const std::string& guid = std::get<Started>(result).guid;
  context.print(context.options.json ? guidJson(guid) : guid + '\n');
  return ExitCode::kDone;
}

}  // namespace

void addChangeCommands(CommandLine& line) {
  const Command starting =
      line.command("start", "Start an activity and print its guid", "brevant start Reading");
  const auto category = starting.text("CATEGORY", "A category's guid or name");
  starting.run([category](Context& context) { return start(context, *category); });

  for (const Wording& wording : kWordings) {
    const std::string name = wording.name;
    const Command command = line.command(name, wording.summary, "brevant " + name);
    const auto guid =
        command.optionalText("GUID", "The activity; may be left out when only one can be meant");
    command.run([&wording, guid](Context& context) { return change(context, wording, *guid); });
  }
}

}  // namespace brevant
