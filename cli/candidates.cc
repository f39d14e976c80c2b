// SPDX-License-Identifier: MIT
#include "cli/candidates.h"

#include <algorithm>
#include <map>
#include <set>

#include "cli/context.h"
#include "cli/status.h"
#include "cli/text_records.h"
#include "cli/text_time.h"
#include "cli/words.h"
#include "live/activity_attribute.h"
#include "manager/widget_manager.h"
#include "platform/live_activities.h"

namespace brevant {
namespace {

using Candidates = std::vector<Candidate>;

struct Place {
  std::string_view command;  // empty: any
  std::string_view name;
  PlaceKind kind;
};

constexpr Place kPlaces[] = {
    {"", "DIR", PlaceKind::kFolder},
    {"", "--container", PlaceKind::kFolder},
    {"", "FILE", PlaceKind::kFile},
    {"", "--output", PlaceKind::kFile},
    {"", "CATEGORY", PlaceKind::kCategory},
    {"", "C", PlaceKind::kCategoryOrGroup},
    {"", "--category", PlaceKind::kCategory},
    {"", "--parent", PlaceKind::kGroup},
    {"category", "--name", PlaceKind::kCategory},
    {"category", "--id", PlaceKind::kCategoryGuid},
    {"pause", "GUID", PlaceKind::kRunning},
    {"resume", "GUID", PlaceKind::kPaused},
    {"stop", "GUID", PlaceKind::kUnfinished},
    {"", "GUID", PlaceKind::kUnfinishedGuid},
    {"", "ACTIVITY_ID", PlaceKind::kUnfinishedGuid},
    {"", "--activity", PlaceKind::kRunningGuid},
    {"", "OPERATION", PlaceKind::kOperation},
    {"", "ID", PlaceKind::kLiveActivity},
    {"icon", "NAME", PlaceKind::kIcon},
    {"", "--icon", PlaceKind::kIcon},
};

// A line break can be quoted in every shell, other control characters cannot; fish takes a tilde in
// front for a home folder even where it completes one.
bool canBeTyped(const std::string& name) {
  return !name.empty() && name.front() != '~' && std::none_of(name.begin(), name.end(), [](char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7F;
  });
}

// Adds the name where it says which, else the guid.
void add(Candidates& result, std::set<std::string>& names, const std::optional<std::string>& name,
         const std::optional<std::string>& guid, const std::string& description) {
  if (name && canBeTyped(*name) && names.insert(*name).second) {
    result.push_back({*name, description});
  } else if (guid && canBeTyped(*guid)) {
    result.push_back({*guid, nameText(name)});
  }
}

Candidates named(const TypeList& types) {
  Candidates result;
  std::set<std::string> names;
  for (const TypeRef& type : types) add(result, names, type->name, type->guid, "");
  return result;
}

TypeList onlyGroups(TypeList types) {
  std::erase_if(types, [](const TypeRef& type) {
    return dynamic_cast<const WidgetGroup*>(type.get()) == nullptr;
  });
  return types;
}

Candidates categoryGuids(const WidgetManager& manager) {
  Candidates result;
  for (const TypeRef& type : manager.findAllTypes()) {
    if (type->guid && canBeTyped(*type->guid))
      result.push_back({*type->guid, nameText(type->name)});
  }
  return result;
}

Candidates icons(const WidgetManager& manager) {
  Candidates result;
  std::set<std::string> names;
  for (const TypeRef& type : manager.findAllTypes()) add(result, names, type->imageGuid, {}, "");
  return result;
}

// Those that the place can mean, as their category's name or as their guid.
Candidates activities(Context& context, WidgetManager& manager, PlaceKind kind) {
  const Status status = readStatus(manager, context.platform.clock);
  std::vector<StatusItem> items;
  if (kind != PlaceKind::kPaused) items = status.running;
  if (kind != PlaceKind::kRunning && kind != PlaceKind::kRunningGuid) {
    items.insert(items.end(), status.paused.begin(), status.paused.end());
  }
  const bool byGuid = kind == PlaceKind::kRunningGuid || kind == PlaceKind::kUnfinishedGuid;
  std::map<std::optional<std::string>, int> namesakes;
  for (const StatusItem& item : items) ++namesakes[item.name];
  Candidates result;
  for (const StatusItem& item : items) {
    const std::string state =
        item.isRunning ? tr("running, %1", durationText(item.elapsed)) : tr("paused");
    if (!byGuid && item.name && canBeTyped(*item.name) && namesakes[item.name] == 1) {
      result.push_back({*item.name, state});
    } else if (item.guid && canBeTyped(*item.guid)) {
      result.push_back({*item.guid, tr("%1, %2", nameText(item), state)});
    }
  }
  return result;
}

Candidates liveActivities(const Context& context) {
  Candidates result;
  const LiveActivityList list = context.platform.liveActivities.activities();
  const auto* activities = std::get_if<std::vector<LiveActivity>>(&list);
  if (activities == nullptr) return result;
  for (const LiveActivity& activity : *activities) {
    const auto content = ContentState::decoded(context.platform.coder, activity.contentState);
    const auto* state = std::get_if<ContentState>(&content);
    result.push_back({activity.id, state == nullptr ? "" : nameText(state->typeName)});
  }
  return result;
}

}  // namespace

PlaceKind placeKind(std::string_view command, std::string_view place) {
  const auto* const found =
      std::find_if(std::begin(kPlaces), std::end(kPlaces), [&](const Place& each) {
        return each.name == place && (each.command.empty() || each.command == command);
      });
  return found == std::end(kPlaces) ? PlaceKind::kAnything : found->kind;
}

std::vector<Candidate> candidates(Context& context, PlaceKind kind) {
  switch (kind) {
    case PlaceKind::kAnything:
    case PlaceKind::kFile:
    case PlaceKind::kFolder:
      return {};
    case PlaceKind::kOperation:
      return {{"stop", ""}, {"pause", ""}};
    case PlaceKind::kLiveActivity:
      return liveActivities(context);
    default:
      break;
  }
  const auto manager = WidgetManager::open(context.platform);
  switch (kind) {
    case PlaceKind::kCategory:
      return named(manager->findCategoriesOnly());
    case PlaceKind::kGroup:
      return named(onlyGroups(manager->findAllTypes()));
    case PlaceKind::kCategoryOrGroup:
      return named(manager->findAllTypes());
    case PlaceKind::kCategoryGuid:
      return categoryGuids(*manager);
    case PlaceKind::kIcon:
      return icons(*manager);
    default:
      return activities(context, *manager, kind);
  }
}

}  // namespace brevant
