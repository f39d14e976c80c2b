#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "store/widget_activity.h"

namespace brevant {

class Context;
class WidgetManager;

enum class Change { kStop, kPause, kResume };

// What a change came to. The database layer answers nothing, so both are told by what a new
// connection finds in the database afterwards.
struct Changed {
  bool removed = false;     // the activity was too short to be kept
  std::uint64_t total = 0;  // whole seconds of its stored stretches
};
struct NotChanged {
  std::string why;  // one line
};
using ChangeResult = std::variant<Changed, NotChanged>;

// `manager` is closed before the result is checked.
ChangeResult applyChange(Context& context, std::unique_ptr<WidgetManager> manager,
                         WidgetActivity& activity, Change change);

// The same for the running or paused activity of that guid; unknown ones change nothing.
ChangeResult changeActivity(Context& context, const std::string& guid, Change change);

struct Started {
  std::string guid;
};
using StartResult = std::variant<Started, NotChanged>;

StartResult startActivity(Context& context, std::unique_ptr<WidgetManager> manager,
                          const std::string& categoryGuid);

// "nothing was changed: …"
std::string nothingChanged(std::string_view why);

}  // namespace brevant
