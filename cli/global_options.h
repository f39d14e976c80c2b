#pragma once

#include <optional>
#include <string>

#include "platform/environment.h"

namespace brevant {

// What every command understands, before or after its name.
struct GlobalOptions {
  std::optional<std::string> container;
  std::optional<double> now;  // seconds since 1970
  std::string systemVersion = "17.0";
  ColorScheme colorScheme = ColorScheme::kLight;
  bool isiOSAppOnMac = false;
  bool json = false;
  bool onlyAsks = false;  // the command changes nothing
};

}  // namespace brevant
