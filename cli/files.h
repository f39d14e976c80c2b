// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace brevant {

struct Unreadable {
  std::string why;
};

// Everything on stdin, unless it cannot be read or is larger than a command could want.
std::variant<std::string, Unreadable> readInput();

// Empty on success, else what went wrong.
[[nodiscard]] std::string writeFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace brevant
