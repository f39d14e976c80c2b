// SPDX-License-Identifier: MIT
// What the doctor looks at around the database: what else lies in the container and where it is.
#pragma once

#include <vector>

#include "cli/doctor.h"

namespace brevant {

Finding checkLiveActivities(const Context& context);
Finding checkReminders(const Context& context);
Finding checkLocks(const Context& context);
Finding checkPlace(const Context& context);
Finding checkIconCache(const Context& context);

}  // namespace brevant
