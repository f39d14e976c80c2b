// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/platform.h"
#include "store/store_events.h"

namespace brevant {

// Applies "stop" or "pause" to the activity of that guid in the shared database, with a manager of
// its own and in one transaction from finding it to storing the change. Any other operation, and a
// guid that is neither running nor paused, changes nothing.
void performOperation(const Platform& platform, std::string_view activityId,
                      std::string_view operation, StoreListener listener = {});

}  // namespace brevant
