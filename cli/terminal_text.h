// SPDX-License-Identifier: MIT

// Texts of the database for people: shown as they are meant, never obeyed by a terminal.
#pragma once

#include <string>
#include <string_view>

namespace brevant {

// Valid UTF-8 in which control characters and those that change the direction of text are spelled
// out ("\x1b", "\u{202e}").
std::string printable(std::string_view text);

// Valid UTF-8 on one line: control characters become spaces. For programs that draw the text.
std::string onOneLine(std::string_view text);

// The columns that a printable text takes: two for wide characters, none for combining ones.
std::size_t displayWidth(std::string_view text);

}  // namespace brevant
