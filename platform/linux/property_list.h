// SPDX-License-Identifier: MIT

// Property lists as the settings file holds them, behind the one place that knows their library.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/property_list_limits.h"
#include "platform/property_value.h"

namespace brevant {

// The dictionary in a binary or XML property list; absent when the bytes hold none.
std::optional<PropertyDictionary> parsePropertyList(std::string_view bytes);

// A property list in the format of `bytes` with some keys set and every other as it was, in value,
// type and order. No bytes make a new binary one; absent when the bytes hold no dictionary, or
// something that would not be the same when written again.
std::optional<std::string> mergedPropertyList(std::string_view bytes,
                                              const std::map<std::string, bool>& changes);

}  // namespace brevant
