// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>
#include <map>

#include "cli/change.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_records.h"
#include "cli/shell_words.h"
#include "cli/text_records.h"
#include "cli/text_time.h"
#include "cli/words.h"
#include "manager/widget_manager.h"
#include "platform/text.h"

namespace brevant {
namespace {

struct Wording {
  Change change;
  const char* name;
  const char* done;
  const char* summary;
};

constexpr Wording kWordings[] = {
    {Change::kStop, "stop", marked("Stopped %1 after %2"), marked("Stop an activity")},
    {Change::kPause, "pause", marked("Paused %1 after %2"), marked("Pause an activity")},
    {Change::kResume, "resume", marked("Resumed %1"), marked("Let a paused activity run again")},
};

ActivityList inState(const ActivityList& activities, std::int32_t state) {
  ActivityList result;
  std::copy_if(activities.begin(), activities.end(), std::back_inserter(result),
               [state](const ActivityRef& activity) {
                 return activity->state == state && activity->guid;  // else none could be written
               });
  return result;
}

// What a command means among these.
ActivityList meant(const ActivityList& activities, Change change) {
  ActivityList running = inState(activities, kStateRunning);
  const bool wantsPaused =
      change == Change::kResume || (change == Change::kStop && running.empty());
  return wantsPaused ? inState(activities, kStatePaused) : running;
}

// The categories of some activities, read once however many there are.
class Categories {
 public:
  explicit Categories(const WidgetManager& manager) : types_(manager.findAllTypes()) {
    for (const TypeRef& type : types_) {  // of equal guids the first counts
      if (type->guid) byGuid_.try_emplace(*type->guid, type.get());
    }
  }

  std::optional<std::string> nameOf(const WidgetActivity& activity) const {
    const auto found = activity.categoryGuid ? byGuid_.find(*activity.categoryGuid) : byGuid_.end();
    return found == byGuid_.end() ? std::nullopt : found->second->name;
  }

 private:
  TypeList types_;
  std::map<std::string_view, const WidgetType*> byGuid_;
};

// 99990 as "99,990", or what the language has for the comma.
std::string grouped(std::size_t number) {
  std::string digits = std::to_string(number);
  // Translators: the mark between thousands, not the one of decimals.
  const std::string mark = tr(",");
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, mark);
  return digits;
}

NotChanged none(Change change) {
  if (change == Change::kResume) return {tr("nothing is paused")};
  return {change == Change::kStop ? tr("nothing is running or paused") : tr("nothing is running")};
}

// The way to say it again, for each of the first few.
NotChanged sayWhich(const Context& context, const Categories& categories, const Wording& wording,
                    const ActivityList& candidates) {
  constexpr std::size_t kMostListed = 10;
  std::string command = std::string("brevant ") + wording.name + ' ';
  if (context.options.container) {
    command += "--container " + shellQuoted(*context.options.container) + ' ';
  }
  std::string list;
  for (std::size_t i = 0; i < candidates.size() && i < kMostListed; ++i) {
    if (i > 0) list += ", ";
    list += command + shellQuoted(candidates[i]->guid.value_or("")) + " (" +
            nameText(categories.nameOf(*candidates[i])) + ')';
  }
  if (candidates.size() <= kMostListed) return {tr("say which: %1", list)};
  const std::size_t more = candidates.size() - kMostListed;
  return {trPlural("say which: %1 … and %2 more", "say which: %1 … and %2 more", more, list,
                   grouped(more))};
}

// With a name in another case than a category's own, too.
ActivityList named(const Context& context, const Categories& categories,
                   const ActivityList& activities, const std::string& name) {
  const CaseMapping& mapping = context.platform.caseMapping;
  const std::string wanted = mapping.lowercased(name);
  ActivityList result;
  std::ranges::copy_if(activities, std::back_inserter(result), [&](const ActivityRef& each) {
    const std::optional<std::string> own = categories.nameOf(*each);
    return own && mapping.lowercased(*own) == wanted;
  });
  return result;
}

using Picked = std::variant<ActivityRef, NotChanged>;

Picked onlyOne(const Context& context, const Categories& categories, const Wording& wording,
               const ActivityList& candidates) {
  if (candidates.size() == 1) return candidates.front();
  return sayWhich(context, categories, wording, candidates);
}

// By the activity's guid, or by its category's name.
Picked pickNamed(const Context& context, WidgetManager& manager, const ActivityList& activities,
                 const Wording& wording, const std::string& word) {
  const auto found =
      std::ranges::find_if(activities, [&](const auto& each) { return each->guid == word; });
  if (found != activities.end()) return *found;
  const Categories categories(manager);
  const ActivityList ofName = named(context, categories, activities, word);
  const ActivityList candidates = meant(ofName, wording.change);
  if (!candidates.empty()) return onlyOne(context, categories, wording, candidates);
  if (ofName.empty()) return NotChanged{nothingChanged(notUnfinished(manager, word))};
  return NotChanged{nothingChanged(wording.change == Change::kResume
                                       ? tr("%1 is running already", nameText(word))
                                       : tr("%1 is not running", nameText(word)))};
}

Picked pick(const Context& context, WidgetManager& manager, const ActivityList& activities,
            const Wording& wording, const std::optional<std::string>& word) {
  if (word) return pickNamed(context, manager, activities, wording, *word);
  const ActivityList candidates = meant(activities, wording.change);
  if (candidates.empty()) return none(wording.change);
  if (candidates.size() == 1) return candidates.front();
  return sayWhich(context, Categories(manager), wording, candidates);
}

void tell(Context& context, const Wording& wording, const Changed& changed) {
  if (context.options.json) return context.print(guidJson(changed.guid));
  StatusItem item;
  item.hasCategory = changed.hasCategory;
  item.name = changed.name;
  const std::string name = nameText(item);
  if (changed.removed) {
    context.printLine(tr("Removed %1: it was too short to be kept", name));
  } else {
    context.printLine(tr(wording.done, name, durationText(changed.total)));
  }
}

ExitCode change(Context& context, const Wording& wording, const std::optional<std::string>& word) {
  const ChangeResult result = changeActivity(
      context, wording.change, [&](WidgetManager& manager, const ActivityList& activities) {
        return pick(context, manager, activities, wording, word);
      });
  if (const auto* refusal = std::get_if<NotChanged>(&result)) return context.refuse(refusal->why);
  tell(context, wording, std::get<Changed>(result));
  return ExitCode::kDone;
}

std::variant<std::string, NotChanged> chooseCategory(const Context& context,
                                                     const WidgetManager& manager,
                                                     const std::string& category) {
  TypeRef type = manager.findById(category);
  if (!type && !context.store.failure()) type = manager.findByName(category);
  if (!type) return NotChanged{tr("there is no category %1", category)};
  if (dynamic_cast<const WidgetGroup*>(type.get()) != nullptr) {
    return NotChanged{tr("%1 is a group: name one of its categories", category)};
  }
  if (!type->guid) return NotChanged{tr("the category %1 has no guid", category)};
  return *type->guid;
}

ExitCode start(Context& context, const std::string& category) {
  const StartResult result = startActivity(context, [&](const WidgetManager& manager) {
    return chooseCategory(context, manager, category);
  });
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
    const auto guid = command.optionalText(
        "GUID", "The activity, or its category's name; may be left out when only one can be meant");
    command.run([&wording, guid](Context& context) { return change(context, wording, *guid); });
  }
}

}  // namespace brevant
