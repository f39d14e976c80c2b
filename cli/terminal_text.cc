#include "cli/terminal_text.h"

#include <array>
#include <charconv>
#include <functional>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace brevant {
namespace {

// Calls `visit` with every code point; bytes that are no UTF-8 come as U+FFFD.
void forEachCodePoint(std::string_view bytes, const std::function<void(UChar32)>& visit) {
  const auto length = static_cast<std::int32_t>(bytes.size());
  const auto text = icu::UnicodeString::fromUTF8(icu::StringPiece(bytes.data(), length));
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    visit(text.char32At(at));
  }
}

void append(std::string& text, UChar32 point) {
  icu::UnicodeString(point).toUTF8String(text);
}

// Joiners and variation selectors shape a character and stay; every other invisible character that
// acts on its surroundings does not.
bool actsOnTerminal(UChar32 point) {
  constexpr UChar32 kZeroWidthNonJoiner = 0x200C;
  constexpr UChar32 kZeroWidthJoiner = 0x200D;
  if (point == kZeroWidthJoiner || point == kZeroWidthNonJoiner) return false;
  const std::uint32_t kind = U_GET_GC_MASK(point);
  return (kind & (U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK)) != 0;
}

std::string spelledOut(UChar32 point) {
  if (point == '\n') return "\\n";
  if (point == '\t') return "\\t";
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), point, 16).ptr;
  const std::string hex(digits.begin(), end);
  if (point < 0x100) return "\\x" + std::string(hex.size() < 2 ? "0" : "") + hex;
  return "\\u{" + hex + '}';
}

std::size_t width(UChar32 point) {
  if ((U_GET_GC_MASK(point) & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) return 0;
  const auto eastAsian = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
  return eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  forEachCodePoint(text, [&](UChar32 point) {
    if (actsOnTerminal(point)) {
      result += spelledOut(point);
    } else {
      append(result, point);
    }
  });
  return result;
}

std::string onOneLine(std::string_view text) {
  std::string result;
  forEachCodePoint(
      text, [&](UChar32 point) { append(result, actsOnTerminal(point) ? UChar32{' '} : point); });
  return result;
}

std::size_t displayWidth(std::string_view text) {
  std::size_t columns = 0;
  forEachCodePoint(text, [&](UChar32 point) { columns += width(point); });
  return columns;
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t columns = displayWidth(text);
  if (columns < width) text.append(width - columns, ' ');
  return text;
}

}  // namespace brevant
