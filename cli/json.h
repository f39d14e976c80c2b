// SPDX-License-Identifier: MIT

// What the JSON writers share; included by them alone.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "platform/date.h"

namespace brevant {

using Json = nlohmann::ordered_json;

template <typename T>
Json orNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json(nullptr);
}

inline Json orNull(const std::optional<Date>& date) {
  return date ? Json(secondsSince1970(*date)) : Json(nullptr);
}

// One line of JSON. Bytes that are no UTF-8 become U+FFFD; a number that is none becomes null.
std::string printed(const Json& json);

// The same without the line end.
std::string compact(const Json& json);

}  // namespace brevant
