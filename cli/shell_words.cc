// SPDX-License-Identifier: MIT
#include "cli/shell_words.h"

#include <algorithm>

namespace brevant {
namespace {

bool isPlain(char c) {
  constexpr std::string_view kMarks = "_-./,+%";
  const auto byte = static_cast<unsigned char>(c);
  const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  return isLetter || (c >= '0' && c <= '9') || byte >= 0x80 ||
         kMarks.find(c) != std::string_view::npos;
}

bool isControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

}  // namespace

std::string shellQuoted(std::string_view text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), isPlain)) return std::string(text);
  const bool spells = std::any_of(text.begin(), text.end(), isControl);
  std::string quoted = spells ? "$'" : "'";
  for (const char c : text) {
    if (spells) {
      quoted += spelledOut(c);
    } else {
      quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
  }
  return quoted + '\'';
}

std::string escaped(char c) {
  if (isPlain(c)) return {c};
  if (isControl(c)) return "$'" + spelledOut(c) + '\'';
  return {'\\', c};
}

std::string spelledOut(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  if (c == '\n') return "\\n";
  if (c == '\\' || c == '\'') return {'\\', c};
  if (!isControl(c)) return {c};
  const auto byte = static_cast<unsigned char>(c);
  return {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 15U]};
}

}  // namespace brevant
