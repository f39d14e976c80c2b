// What runs now, for the status bars that run a program and show its line.
#pragma once

#include <string>

#include "cli/status.h"

namespace brevant {

// JSON whose text and tooltip are Pango markup; the class is "running", "paused" or "idle".
std::string waybarText(const Status& status);

// A JSON block of plain text with its colour.
std::string i3blocksText(const Status& status);

// Text with formatting tags.
std::string polybarText(const Status& status);

}  // namespace brevant
