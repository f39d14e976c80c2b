// SPDX-License-Identifier: MIT
#pragma once

#include "platform/calendar.h"

namespace brevant {

// The same local minute with its seconds and fractions cut off. In an hour that the local clock
// shows twice this is the minute of the same pass.
[[nodiscard]] Date wholeMinute(Date date, const Calendar& calendar);

}  // namespace brevant
