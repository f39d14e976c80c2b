// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "platform/clock.h"

namespace brevant {

// The system's clock; with `standingAt` (seconds since 1970) a wall clock that stands still there.
std::unique_ptr<Clock> makeClock(std::optional<double> standingAt);

}  // namespace brevant
