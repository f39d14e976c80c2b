// SPDX-License-Identifier: MIT
#include "cli/values.h"

#include <array>
#include <charconv>
#include <cmath>

namespace brevant {
namespace {

template <typename Number, typename... How>
std::optional<Number> parseWhole(std::string_view text, How... how) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, how...);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<std::uint64_t> parseUnsigned(std::string_view text) {
  if (text.starts_with("0x")) return parseWhole<std::uint64_t>(text.substr(2), 16);
  return parseWhole<std::uint64_t>(text);
}

std::optional<double> parseSeconds(std::string_view text) {
  const std::optional<double> seconds = parseWhole<double>(text);
  return seconds && std::isfinite(*seconds) ? seconds : std::nullopt;
}

std::string exactText(double number) {
  std::array<char, 512> text{};  // the largest numbers have 309 digits, the smallest 325 places
  const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed).ptr;
  return {text.data(), end};
}

bool isVersion(std::string_view text) {
  for (std::size_t dot = 0; dot != std::string_view::npos;) {
    dot = text.find('.');
    if (!parseWhole<unsigned short>(text.substr(0, dot))) return false;
    text.remove_prefix(dot == std::string_view::npos ? 0 : dot + 1);
  }
  return true;
}

}  // namespace brevant
