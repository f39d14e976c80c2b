#pragma once

#include <string>

namespace brevant {

// An intent as a button holds it: the intent's type name and its two text parameters.
struct IntentValue {
  std::string name;
  std::string activityId;
  std::string operation;

  bool operator==(const IntentValue&) const = default;
};

}  // namespace brevant
