#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace brevant {

// Everything on stdin; absent when it cannot be read or is larger than a command could want.
std::optional<std::string> readInput();

// Empty on success, else what went wrong.
[[nodiscard]] std::string writeFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace brevant
