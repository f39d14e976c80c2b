// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brevant {

// An intent as a button holds it: the intent's type name and its two text parameters.
struct IntentValue {
  std::string name;
  std::string activityId;
  std::string operation;

  bool operator==(const IntentValue&) const = default;
};

// A text parameter of an intent; absent until somebody sets it.
struct IntentParameter {
  std::string_view title;
  std::optional<std::string> value{};
};

}  // namespace brevant
