// SPDX-License-Identifier: MIT

// Texts as a shell reads them.
#pragma once

#include <string>
#include <string_view>

namespace brevant {

// One word for a shell, to be copied from a terminal: as it is where that is plain, else in quotes,
// with control characters spelled out.
std::string shellQuoted(std::string_view text);

// One character as it stands for itself in bash, outside of quotes and within $'…'.
std::string escaped(char c);
std::string spelledOut(char c);

}  // namespace brevant
