// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/live_activities.h"
#include "platform/random_source.h"

namespace brevant {

// The registry in the container: docs/live_activities.md. A registry file that is broken is told as
// such and never overwritten.
std::unique_ptr<LiveActivityCenter> makeLiveActivityRegistry(const std::string& container,
                                                             const Clock& clock,
                                                             RandomSource& random);

}  // namespace brevant
