// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

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

// The options as words, without --json, for a program that takes them too; the container, if any,
// is the one in use.
std::vector<std::string> globalWords(const GlobalOptions& options, const std::string& container);

}  // namespace brevant
