// SPDX-License-Identifier: MIT

// A value of a property list: what the shared settings hold.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "platform/date.h"

namespace brevant {

struct PropertyValue;

using PropertyData = std::vector<std::uint8_t>;
using PropertyArray = std::vector<PropertyValue>;
using PropertyDictionary = std::map<std::string, PropertyValue, std::less<>>;

struct PropertyValue {
  std::variant<bool, std::int64_t, std::uint64_t, double, std::string, Date, PropertyData,
               PropertyArray, PropertyDictionary>
      value;

  // Whether the same is stored: here even a NaN equals a NaN.
  bool operator==(const PropertyValue& other) const;

  // Typed reads convert as the settings store does: a boolean, an integer, a real and a numeric or
  // yes/no text can stand for each other; anything else reads as 0 or false. Numbers out of range
  // saturate, fractions are cut off.
  bool toBool() const;
  std::int64_t toInteger() const;
};

}  // namespace brevant
