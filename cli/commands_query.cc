// SPDX-License-Identifier: MIT
#include <algorithm>
#include <set>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_records.h"
#include "cli/text_records.h"
#include "cli/words.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

ExitCode printActivities(Context& context, bool onlyRunning) {
  const auto manager = context.openForReading();
  if (context.options.json) {
    context.print(
        activitiesJson(onlyRunning ? manager->findRunningActivities() : manager->findActivities()));
    return context.doneReading();
  }
  Status status = readStatus(*manager, context.platform.clock);
  if (onlyRunning) status.paused.clear();
  context.print(activitiesText(status, context.platform.clock.now(), context.platform.calendar,
                               colorsOfStdout()));
  return context.doneReading();
}

// The tree, then those that stand in no group that is there.
TypeList inTreeOrder(const TypeList& types) {
  TypeList roots;
  std::copy_if(types.begin(), types.end(), std::back_inserter(roots),
               [](const TypeRef& type) { return !type->parentGuid; });
  TypeList result = WidgetManager::flatten(roots);
  std::set<const WidgetType*> listed;
  for (const TypeRef& type : result) listed.insert(type.get());
  std::copy_if(types.begin(), types.end(), std::back_inserter(result),
               [&](const TypeRef& type) { return !listed.contains(type.get()); });
  return result;
}

ExitCode printCategories(Context& context, bool onlyRoots, bool onlyLeaves, Guids guids) {
  const auto manager = context.openForReading();
  const bool all = !onlyRoots && !onlyLeaves;
  TypeList types = all         ? manager->findAllTypes()
                   : onlyRoots ? manager->findRoot()
                               : manager->findCategoriesOnly();
  if (context.options.json) {
    context.print(categoriesJson(types));
  } else {
    context.print(categoriesText(all ? inTreeOrder(types) : types, guids, colorsOfStdout()));
  }
  return context.doneReading();
}

ExitCode printCategory(Context& context, const std::optional<std::string>& guid,
                       const std::optional<std::string>& name) {
  const auto manager = context.openForReading();
  const TypeRef type = guid ? manager->findById(*guid) : manager->findByName(name.value_or(""));
  if (context.store.failure()) return context.doneReading();
  if (!type) {
    return context.refuse(tr("there is no category %1", guid.value_or(name.value_or(""))));
  }
  context.print(context.options.json ? categoryJson(*type)
                                     : categoriesText({type}, Guids::kShown, colorsOfStdout()));
  return ExitCode::kDone;
}

}  // namespace

void addQueryCommands(CommandLine& line) {
  const Command activities = line.command("activities", "List the running and paused activities",
                                          "brevant activities --running --json");
  const auto running = activities.flag("--running", "Only the running ones");
  activities.query([running](Context& context) { return printActivities(context, *running); });

  const Command categories =
      line.command("categories", "List the categories and groups", "brevant categories --leaves");
  const auto roots = categories.flag("--roots", "Only those that stand in no group");
  const auto leaves = categories.flag("--leaves", "Only categories, no groups");
  const auto guid = categories.flag("--guid", "With their guids, as commands take them");
  categories.exclude("--roots", "--leaves");
  categories.query([roots, leaves, guid](Context& context) {
    return printCategories(context, *roots, *leaves, *guid ? Guids::kShown : Guids::kHidden);
  });

  const Command category =
      line.command("category", "Show one category", "brevant category --name reading --json");
  const auto id = category.optionalText("--id", "The category's guid");
  const auto name = category.optionalText("--name", "The category's name; case does not matter");
  category.needsOneOption();
  category.query([id, name](Context& context) { return printCategory(context, *id, *name); });
}

}  // namespace brevant
