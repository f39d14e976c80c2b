// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace brevant {

// Writes row `y` of straight RGBA pixels to `row`.
using RowPainter = std::function<void(std::uint32_t y, std::uint8_t* row)>;

// A PNG file of rows that are painted one by one, so that no whole picture needs to be in memory.
// Absent when it cannot be written.
std::optional<std::vector<std::uint8_t>> writtenPng(std::uint32_t width, std::uint32_t height,
                                                    const RowPainter& paint);

}  // namespace brevant
