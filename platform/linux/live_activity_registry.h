#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/live_activities.h"
#include "platform/log.h"
#include "platform/random_source.h"

namespace brevant {

// The registry in the container: docs/live_activities.md. A registry file that is broken reads as
// empty, with a log line that names it, and is never overwritten.
std::unique_ptr<LiveActivityCenter> makeLiveActivityRegistry(const std::string& container,
                                                             const Clock& clock,
                                                             RandomSource& random, Log& log);

}  // namespace brevant
