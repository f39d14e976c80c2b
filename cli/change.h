// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "store/widget_activity.h"

namespace brevant {

class Context;
class WidgetManager;

enum class Change { kStop, kPause, kResume };

// What a change came to, by what the store told of its transaction.
struct Changed {
  std::string guid;
  std::optional<std::string> categoryGuid;
  bool hasCategory = false;         // one that is there
  std::optional<std::string> name;  // of it
  bool removed = false;             // the activity was too short to be kept
  std::uint64_t total = 0;          // whole seconds of its stored stretches
};
struct NotChanged {
  std::string why;  // one line
};
using ChangeResult = std::variant<Changed, NotChanged>;

// Picks the one that is meant of the running and paused activities, or says why there is none. The
// database is locked while it does, so that the change works on what was picked.
using Pick =
    std::function<std::variant<ActivityRef, NotChanged>(WidgetManager&, const ActivityList&)>;

ChangeResult changeActivity(Context& context, Change change, const Pick& pick);

// The same for the running or paused activity of that guid.
ChangeResult changeActivity(Context& context, const std::string& guid, Change change);

// Why there is nothing to change under that guid.
std::string notUnfinished(WidgetManager& manager, const std::string& guid);

// Starts an activity of the category that `choose` answers with its guid, or not.
struct Started {
  std::string guid;
};
using StartResult = std::variant<Started, NotChanged>;
using Choose = std::function<std::variant<std::string, NotChanged>(WidgetManager&)>;

StartResult startActivity(Context& context, const Choose& choose);

// Why what the store was asked for since the report began is not in the database, or may not be;
// absent when it is there, or nothing was written and nothing failed. Warns of a change that the
// main application was not told of.
std::optional<std::string> troubleWithChange(Context& context);

// "nothing was changed: …"
std::string nothingChanged(std::string_view why);

}  // namespace brevant
