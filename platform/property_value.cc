#include "platform/property_value.h"

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

// The number that a text begins with, after blanks, or 0.
double leadingNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\n\r");
  if (first == std::string_view::npos) return 0;
  text.remove_prefix(first);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool saysYes(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\n\r");
  if (first == std::string_view::npos) return false;
  if (std::string_view("YyTt").find(text[first]) != std::string_view::npos) return true;
  return leadingNumber(text) != 0;
}

struct ToInteger {
  std::int64_t operator()(bool flag) const { return flag ? 1 : 0; }
  std::int64_t operator()(std::int64_t number) const { return number; }
  std::int64_t operator()(std::uint64_t number) const {
    return number > INT64_MAX ? INT64_MAX : static_cast<std::int64_t>(number);
  }
  std::int64_t operator()(double number) const { return saturated(number); }
  std::int64_t operator()(const std::string& text) const {
    // "YES" and "true" count as 1 only where a flag is asked for; as a number they read as 0.
    return saturated(leadingNumber(text));
  }
  template <typename Other>
  std::int64_t operator()(const Other&) const {
    return 0;
  }
};

}  // namespace

std::int64_t PropertyValue::toInteger() const {
  return std::visit(ToInteger{}, value);
}

bool PropertyValue::toBool() const {
  if (const auto* text = std::get_if<std::string>(&value)) return saysYes(*text);
  if (const auto* number = std::get_if<double>(&value)) return *number != 0;
  return toInteger() != 0;
}

}  // namespace brevant
