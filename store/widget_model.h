// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brevant {

// What every synchronised row has: identity and revision.
struct WidgetModel {
  std::uint64_t revision = 0;  // carried for the main application
  std::optional<std::string> guid;
  std::uint64_t updatedOn = 0;  // whole seconds since 1970
};

}  // namespace brevant
