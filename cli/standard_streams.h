// SPDX-License-Identifier: MIT

// What the program says, and where.
#pragma once

#include <string_view>

namespace brevant {

// Fills the places of standard streams that the program was started without, so that no file which
// is opened later takes one and gets an answer written into it. Writing there fails.
void keepStandardPlaces();

// One line on stderr after the program's name, in which nothing can play tricks on a terminal.
void writeMessage(std::string_view message);

// Whether all of it reached stdout.
bool writeAnswer(std::string_view answer);

}  // namespace brevant
