#include "cli/change.h"

#include <algorithm>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/status.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

// What the database has, through a connection of its own. Absent when it stays unreadable.
std::optional<ActivityList> storedActivities(Context& context) {
  constexpr int kAttempts = 3;  // each waits for a lock as long as the database layer does
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    context.log.forget();
    ActivityList activities = WidgetManager::open(context.platform)->findActivities();
    if (!context.log.failure()) return activities;
  }
  return std::nullopt;
}

NotChanged notConfirmed(Context& context) {
  return {"the change could not be confirmed: " +
          context.log.failure().value_or("the database could not be read")};
}

void perform(WidgetManager& manager, WidgetActivity& activity, Change change) {
  switch (change) {
    case Change::kStop:
      return manager.stopActivity(activity);
    case Change::kPause:
      return manager.pauseActivity(activity);
    case Change::kResume:
      return manager.resumeActivity(activity);
  }
}

// Whether an activity that is there no more was deleted rather than stopped.
bool wasRemoved(const WidgetActivity& activity, Change change) {
  // Stopping works on the record itself and leaves it alone when it deletes the activity.
  return change == Change::kPause || activity.state == kStateRunning;
}

// A stretch that was too short is not among them; of a stopped activity the record that was stored
// knows, since no query has it.
std::uint64_t total(const WidgetActivity& activity) {
  return statusItem(activity, nullptr, {}).total;
}

ChangeResult check(const ActivityList& stored, const WidgetActivity& activity, Change change) {
  const auto found = std::find_if(stored.begin(), stored.end(), [&](const ActivityRef& candidate) {
    return candidate->guid == activity.guid;
  });
  if (found == stored.end() && change != Change::kResume) {
    return Changed{wasRemoved(activity, change), total(activity)};
  }
  const std::int32_t wanted = change == Change::kPause ? kStatePaused : kStateRunning;
  if (found != stored.end() && change != Change::kStop && (*found)->state == wanted) {
    return Changed{false, total(**found)};
  }
  return NotChanged{"the database does not have the change"};
}

}  // namespace

ChangeResult applyChange(Context& context, std::unique_ptr<WidgetManager> manager,
                         WidgetActivity& activity, Change change) {
  context.log.forget();
  perform(*manager, activity, change);
  manager.reset();
  if (const auto failure = context.log.failure()) return NotChanged{nothingChanged(*failure)};
  const std::optional<ActivityList> stored = storedActivities(context);
  if (!stored) return notConfirmed(context);
  return check(*stored, activity, change);
}

ChangeResult changeActivity(Context& context, const std::string& guid, Change change) {
  if (const auto trouble = missingDatabase(context.platform.files)) {
    return NotChanged{nothingChanged(*trouble)};
  }
  context.log.forget();
  auto manager = WidgetManager::open(context.platform);
  const ActivityList activities = manager->findActivities();
  if (const auto failure = context.log.failure()) return NotChanged{nothingChanged(*failure)};
  for (const ActivityRef& activity : activities) {
    if (activity->guid == guid) return applyChange(context, std::move(manager), *activity, change);
  }
  return NotChanged{nothingChanged("there is no running or paused activity " + guid)};
}

StartResult startActivity(Context& context, std::unique_ptr<WidgetManager> manager,
                          const std::string& categoryGuid) {
  context.log.forget();
  manager->startActivity(categoryGuid);
  manager.reset();
  if (const auto failure = context.log.failure()) return NotChanged{nothingChanged(*failure)};
  const std::optional<ActivityList> stored = storedActivities(context);
  if (!stored) return notConfirmed(context);
  for (const ActivityRef& activity : *stored) {
    if (activity->guid && context.random.made(*activity->guid)) return Started{*activity->guid};
  }
  return NotChanged{"the database does not have the new activity"};
}

std::string nothingChanged(std::string_view why) {
  return "nothing was changed: " + std::string(why);
}

}  // namespace brevant
