// SPDX-License-Identifier: MIT
#include "cli/utf8.h"

namespace brevant {
namespace {

// What a first byte says: how many bytes follow, its own bits, and the least code point that needs
// that many.
struct Lead {
  std::size_t following;
  char32_t bits;
  char32_t least;
};

Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {0, byte, 0};
  if (byte >= 0xC0 && byte < 0xE0) return {1, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {2, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte < 0xF8) return {3, byte & 0x07U, 0x10000};
  return {0, kReplacementCharacter, 0};
}

bool isCodePoint(char32_t point) {
  const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
  return point <= 0x10FFFF && !isSurrogate;
}

}  // namespace

char32_t takeCodePoint(std::string_view& text) {
  const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
  char32_t point = lead.bits;
  bool isWhole = lead.following < text.size();
  for (std::size_t i = 1; isWhole && i <= lead.following; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    isWhole = (byte & 0xC0U) == 0x80;
    point = point << 6U | (byte & 0x3FU);
  }
  const bool isValid = isWhole && point >= lead.least && isCodePoint(point);
  text.remove_prefix(isValid ? lead.following + 1 : 1);
  return isValid ? point : kReplacementCharacter;
}

void appendUtf8(std::string& text, char32_t point) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto appendFollowing = [&](unsigned shift) { append(0x80 | (point >> shift & 0x3F)); };
  if (point < 0x80) {
    append(point);
  } else if (point < 0x800) {
    append(0xC0 | point >> 6U);
    appendFollowing(0);
  } else if (point < 0x10000) {
    append(0xE0 | point >> 12U);
    appendFollowing(6);
    appendFollowing(0);
  } else {
    append(0xF0 | point >> 18U);
    appendFollowing(12);
    appendFollowing(6);
    appendFollowing(0);
  }
}

}  // namespace brevant
