// SPDX-License-Identifier: MIT
#include "cli/terminal_text.h"

#include <array>
#include <charconv>
#include <clocale>
#include <cwchar>
#include <optional>

#include "cli/utf8.h"

namespace brevant {
namespace {

// What moves the cursor, ends the line or turns the direction of what follows.
bool actsOnTerminal(char32_t point) {
  const auto isWithin = [point](char32_t first, char32_t last) {
    return point >= first && point <= last;
  };
  return point < 0x20 || isWithin(0x7F, 0x9F) || point == 0x061C || isWithin(0x200E, 0x200F) ||
         isWithin(0x2028, 0x202E) || isWithin(0x2066, 0x2069) || point == 0xFEFF;
}

std::string spelledOut(char32_t point) {
  if (point == '\n') return "\\n";
  if (point == '\t') return "\\t";
  std::array<char, 8> digits{};
  const auto end =
      std::to_chars(digits.begin(), digits.end(), static_cast<std::uint32_t>(point), 16).ptr;
  const std::string hex(digits.begin(), end);
  if (point < 0x100) return "\\x" + std::string(hex.size() < 2 ? "0" : "") + hex;
  return "\\u{" + hex + '}';
}

template <typename Replace>
std::string replaced(std::string_view text, Replace replace) {
  std::string result;
  while (!text.empty()) {
    const char32_t point = takeCodePoint(text);
    if (actsOnTerminal(point)) {
      result += replace(point);
    } else {
      appendUtf8(result, point);
    }
  }
  return result;
}

// Latin letters, lines and bullets: known without the table, which takes time to load.
bool isNarrow(char32_t point) {
  return point < 0x300 || (point >= 0x2500 && point < 0x25FD);
}

// While it lives, the C library knows the widths of all characters, whatever the user's locale is.
class UnicodeWidths {
 public:
  UnicodeWidths() : before_(uselocale(unicode_)) {}
  ~UnicodeWidths() {
    uselocale(before_);
    if (unicode_ != locale_t{}) freelocale(unicode_);
  }
  UnicodeWidths(const UnicodeWidths&) = delete;
  UnicodeWidths& operator=(const UnicodeWidths&) = delete;

  std::size_t operator()(char32_t point) const {
    const int columns = wcwidth(static_cast<wchar_t>(point));
    return columns < 0 ? 1 : static_cast<std::size_t>(columns);  // newer than the library
  }

 private:
  const locale_t unicode_ = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
  const locale_t before_;
};

}  // namespace

std::string printable(std::string_view text) {
  return replaced(text, spelledOut);
}

std::string onOneLine(std::string_view text) {
  return replaced(text, [](char32_t) { return ' '; });
}

std::size_t displayWidth(std::string_view text) {
  std::optional<UnicodeWidths> widths;
  std::size_t columns = 0;
  while (!text.empty()) {
    const char32_t point = takeCodePoint(text);
    if (isNarrow(point)) {
      ++columns;
    } else {
      if (!widths) widths.emplace();
      columns += (*widths)(point);
    }
  }
  return columns;
}

}  // namespace brevant
