// SPDX-License-Identifier: MIT

// The records of the database for people: aligned, and in the colours of their categories where the
// terminal can.
#pragma once

#include <string>

#include "cli/status.h"
#include "cli/terminal.h"
#include "platform/calendar.h"
#include "store/widget_type.h"

namespace brevant {

// One line for each activity; empty when there is none.
std::string statusText(const Status& status, Date now, const Calendar& calendar, Colors colors);

// The same with the guids, as commands take them.
std::string activitiesText(const Status& status, Date now, const Calendar& calendar, Colors colors);

enum class Guids { kHidden, kShown };

// One line for each category, indented by nesting level.
std::string categoriesText(const TypeList& types, Guids guids, Colors colors);

// The name, or what stands for one that is missing.
std::string nameText(const std::optional<std::string>& name);

// The name of an activity's category; one that is not there is another thing than one without a
// name.
std::string nameText(const StatusItem& item);

}  // namespace brevant
