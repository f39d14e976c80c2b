// SPDX-License-Identifier: MIT
#include "platform/property_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace brevant {
namespace {

std::int64_t saturated(double number) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (std::isnan(number)) return 0;
  if (number >= kLimit) return INT64_MAX;
  if (number < -kLimit) return INT64_MIN;
  return static_cast<std::int64_t>(number);
}

std::string_view withoutBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t\n\r"), text.size()));
}

// The number that a text begins with, after blanks, or 0.
double leadingNumber(std::string_view text) {
  text = withoutBlanks(text);
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  // Names of numbers, as "infinity" and "nancy" begin with, are words here.
  const std::string_view digits = text.substr(text.starts_with('.') ? 1 : 0, 1);
  if (digits.empty() || digits[0] < '0' || digits[0] > '9') return 0;
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return isNegative ? -number : number;
}

bool saysYes(std::string_view text) {
  const std::string_view letter = withoutBlanks(text).substr(0, 1);
  return !letter.empty() && std::string_view("YyTt").find(letter) != std::string_view::npos;
}

struct ToInteger {
  std::int64_t operator()(bool flag) const { return flag ? 1 : 0; }
  std::int64_t operator()(std::int64_t number) const { return number; }
  std::int64_t operator()(std::uint64_t number) const {
    return number > INT64_MAX ? INT64_MAX : static_cast<std::int64_t>(number);
  }
  std::int64_t operator()(double number) const { return saturated(number); }
  std::int64_t operator()(const std::string& text) const {
    return saysYes(text) ? 1 : saturated(leadingNumber(text));
  }
  template <typename Other>
  std::int64_t operator()(const Other&) const {
    return 0;
  }
};

bool isNaN(const PropertyValue& value) {
  const auto* const number = std::get_if<double>(&value.value);
  return number && std::isnan(*number);
}

}  // namespace

bool PropertyValue::operator==(const PropertyValue& other) const {
  return value == other.value || (isNaN(*this) && isNaN(other));
}

std::int64_t PropertyValue::toInteger() const {
  return std::visit(ToInteger{}, value);
}

bool PropertyValue::toBool() const {
  if (const auto* text = std::get_if<std::string>(&value)) {
    return saysYes(*text) || leadingNumber(*text) != 0;
  }
  if (const auto* number = std::get_if<double>(&value)) return *number != 0;
  return toInteger() != 0;
}

}  // namespace brevant
