// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/date.h"

namespace brevant {

// The value for one "?" of a statement, in the form that SQLite stores it. Texts and byte buffers
// are borrowed until the statement was handed over, so that arguments cost nothing to make.
class Argument {
 public:
  using Blob = std::span<const std::uint8_t>;
  // Null, number, text, bytes. The owned text is the description of a value without a form of its
  // own.
  using Value =
      std::variant<std::monostate, int, std::int64_t, double, std::string_view, Blob, std::string>;

  Argument(std::nullopt_t) {}
  Argument(Date date) : value_(secondsSince1970(date)) {}
  Argument(std::string_view text) : value_(text) {}
  Argument(const std::string& text) : value_(std::string_view(text)) {}
  Argument(std::string&&) = delete;
  Argument(const char* text) {
    if (text) value_ = std::string_view(text);
  }
  Argument(Blob bytes) : value_(bytes) {}

  // What fits an int is one. An unsigned 32-bit number keeps its value, an unsigned 64-bit number
  // its bits.
  template <std::integral T>
  Argument(T number) {
    constexpr bool kFits = sizeof(T) < sizeof(int) || std::same_as<T, int>;
    value_ = static_cast<std::conditional_t<kFits, int, std::int64_t>>(number);
  }
  Argument(double number) : value_(number) {}
  Argument(float number) : value_(double{number}) {}
  Argument(long double number) : value_(std::to_string(number)) {}

  // Null when it is absent.
  template <typename T>
  Argument(const std::optional<T>& optional) {
    if (optional) value_ = Argument(*optional).value_;
  }
  Argument(std::optional<std::string>&&) = delete;

  const Value& value() const { return value_; }

 private:
  Value value_;
};

}  // namespace brevant
