// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "platform/calendar.h"

namespace brevant {

// The Gregorian calendar in the zone that $TZ or the system gives at this moment; a later change of
// either is seen by a calendar made after it (and then by all of them: a process has one zone).
std::unique_ptr<Calendar> makeCalendar();

// The second of the two instants that have this local time, in the zone of the last calendar that
// was made; absent where it occurs only once.
std::optional<Date> secondDate(const DateComponents& components);

}  // namespace brevant
