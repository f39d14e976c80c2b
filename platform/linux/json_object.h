// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace brevant {

// A number as it was written, which is exact, and as near as a double comes to it.
struct JsonNumber {
  std::string spelling;
  double value = 0;
};

// Without a value: null, true, false, a list or an object.
using JsonField = std::variant<std::monostate, std::string, JsonNumber>;
using JsonFields = std::map<std::string, JsonField, std::less<>>;

struct NoJsonObject {
  std::string why;
};

// The fields of one JSON object. A key that stands there twice makes it none, as readers differ in
// which of the two counts.
std::variant<JsonFields, NoJsonObject> parseJsonObject(std::string_view text);

// Absent for a fraction, a negative number and one above 64 bits. How it is spelled does not
// matter: "100", "100.0" and "1e2" are the same number.
std::optional<std::uint64_t> wholeNumber(std::string_view spelling);

}  // namespace brevant
