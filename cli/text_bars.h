// SPDX-License-Identifier: MIT

// What runs now, for the status bars that run a program and show its line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/status.h"

namespace brevant {

// All that run; when nothing does, all that are paused.
const std::vector<StatusItem>& shownItems(const Status& status);

// "running", "paused" or "idle".
std::string stateWord(const Status& status);

// "#rrggbb".
std::string colorText(std::uint64_t color);

// JSON whose text and tooltip are Pango markup; the class is the state.
std::string waybarText(const Status& status);

// A JSON block of plain text with its colour.
std::string i3blocksText(const Status& status);

// Text with formatting tags.
std::string polybarText(const Status& status);

// What runs, for prompts, terminal multiplexers and lock screens; an empty line when nothing does.
std::string plainText(const Status& status);

}  // namespace brevant
