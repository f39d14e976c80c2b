// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace brevant {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// Takes the first code point off a text that is not empty; a byte that is no UTF-8 comes as U+FFFD.
char32_t takeCodePoint(std::string_view& text);

void appendUtf8(std::string& text, char32_t point);

}  // namespace brevant
