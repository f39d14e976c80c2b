// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/exit_code.h"

namespace brevant {

// Answers the shells' completion scripts, which only pass on what was typed and offer what they are
// told. The arguments are
//   bash BREAKS LINE    $COMP_WORDBREAKS, and the line up to the cursor as it was typed
//   zsh|fish WORD...    the words behind the program's name without quotes, the last one unfinished
// The answer is a list whose items end in a NUL: first "words", "files" or "folders", then for
// "words" the candidates: for bash as they are to be inserted, for zsh each with its description
// behind it, for fish with the description after a tab.
ExitCode complete(const std::vector<std::string>& arguments);

}  // namespace brevant
