// SPDX-License-Identifier: MIT
#include "cli/change.h"

#include <algorithm>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/status.h"
#include "cli/words.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

using Kind = ActivityWrite::Kind;
using Outcome = TransactionEnd::Outcome;

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

// Of the closed stretches as they are stored, which a setting can make differ from what was
// written.
std::uint64_t storedTotal(const WidgetManager& manager, const WidgetActivity& activity) {
  WidgetActivity stored;
  stored.intervals = manager.dao->readIntervals(activity.guid);
  return statusItem(stored, nullptr, {}).total;
}

// With the database locked; what becomes of it the store tells when the lock is given back.
ChangeResult changeLocked(WidgetManager& manager, Change change, const Pick& pick) {
  const std::optional<ActivityList> activities = manager.dao->readActivities();
  if (!activities) return NotChanged{};  // the store tells why
  const auto picked = pick(manager, *activities);
  if (const auto* refusal = std::get_if<NotChanged>(&picked)) return *refusal;
  WidgetActivity& activity = *std::get<ActivityRef>(picked);
  if (change == Change::kResume && activity.state == kStateRunning) {
    // It would begin a new stretch and lose the one that it is in.
    return NotChanged{nothingChanged(tr("it is running already"))};
  }
  perform(manager, activity, change);
  Changed changed;
  changed.guid = activity.guid.value_or("");
  changed.categoryGuid = activity.categoryGuid;
  changed.total = storedTotal(manager, activity);
  return changed;
}

void addCategory(const WidgetManager& manager, Changed& changed) {
  const TypeRef type = changed.categoryGuid ? manager.findById(*changed.categoryGuid) : nullptr;
  changed.hasCategory = type != nullptr;
  if (type) changed.name = type->name;
}

NotChanged notTaken() {
  return {nothingChanged(tr("the database did not take it"))};
}

bool wasRemoved(const StoreReport& store) {
  return store.end() && store.end()->writes.back().kind == Kind::kRemoved;
}

}  // namespace

ChangeResult changeActivity(Context& context, Change change, const Pick& pick) {
  if (const auto trouble = missingDatabase(context.platform.files)) {
    return NotChanged{nothingChanged(*trouble)};
  }
  context.store.forget();
  const auto manager = context.openManager();
  ChangeResult result = notTaken();  // where the file went between looking and opening
  manager->inOneTransaction([&] { result = changeLocked(*manager, change, pick); });
  if (const auto trouble = troubleWithChange(context)) return NotChanged{*trouble};
  if (auto* changed = std::get_if<Changed>(&result)) {
    changed->removed = wasRemoved(context.store);
    addCategory(*manager, *changed);
  }
  return result;
}

ChangeResult changeActivity(Context& context, const std::string& guid, Change change) {
  return changeActivity(
      context, change,
      [&guid](WidgetManager& manager,
              const ActivityList& activities) -> std::variant<ActivityRef, NotChanged> {
        const auto found =
            std::ranges::find_if(activities, [&](const auto& each) { return each->guid == guid; });
        if (found != activities.end()) return *found;
        return NotChanged{nothingChanged(notUnfinished(manager, guid))};
      });
}

std::string notUnfinished(WidgetManager& manager, const std::string& guid) {
  if (manager.dao->hasActivity(guid) == true) {
    return tr("the activity %1 is not running or paused", guid);
  }
  return tr("there is no running or paused activity %1", guid);
}

StartResult startActivity(Context& context, const Choose& choose) {
  if (const auto trouble = missingDatabase(context.platform.files)) {
    return NotChanged{nothingChanged(*trouble)};
  }
  context.store.forget();
  const auto manager = context.openManager();
  std::variant<std::string, NotChanged> category = notTaken();
  manager->inOneTransaction([&] {
    category = choose(*manager);
    if (context.store.failure()) return;
    if (const auto* guid = std::get_if<std::string>(&category)) manager->startActivity(*guid);
  });
  if (const auto trouble = troubleWithChange(context)) return NotChanged{*trouble};
  if (const auto* refusal = std::get_if<NotChanged>(&category)) return *refusal;
  return Started{context.store.end()->writes.back().guid.value_or("")};
}

std::optional<std::string> troubleWithChange(Context& context) {
  const StoreReport& store = context.store;
  const std::string why = store.failure().value_or(tr("the database did not take it"));
  if (!store.end()) {
    return store.failure() ? std::optional(nothingChanged(why)) : std::nullopt;
  }
  switch (store.end()->outcome) {
    case Outcome::kNotStored:
      return nothingChanged(why);
    case Outcome::kUnknown:
      return tr("the change could not be confirmed: %1", why);
    case Outcome::kStored:
      break;
  }
  if (store.untold()) {
    context.warn(
        tr("the change is stored, but the tracker was not told of it: %1", *store.untold()));
  }
  return std::nullopt;
}

std::string nothingChanged(std::string_view why) {
  return tr("nothing was changed: %1", why);
}

}  // namespace brevant
