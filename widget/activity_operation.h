#pragma once

#include <string_view>

#include "platform/platform.h"

namespace brevant {

// Applies "stop" or "pause" to the activity of that guid in the shared database, with a manager of
// its own. Any other operation, and a guid that is neither running nor paused, changes nothing.
void performOperation(const Platform& platform, std::string_view activityId,
                      std::string_view operation);

}  // namespace brevant
