// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace brevant {

enum class Colors { kNone, k256, kMillions };

// What stdout can show: no colours unless it is a terminal, and none where NO_COLOR is set.
Colors colorsOfStdout();

// `text` in a colour 0xRRGGBB, or as it is.
std::string painted(const std::string& text, std::optional<std::uint64_t> color, Colors colors);

// How wide a line on stdout may be: without limit unless it is a terminal.
std::size_t columnsOfStdout();

}  // namespace brevant
