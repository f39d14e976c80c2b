// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace brevant {

// What a picture is decoded to.
enum class PixelFormat {
  kColor,     // four bytes a pixel: straight RGBA in sRGB
  kCoverage,  // one byte a pixel: alpha alone, exact
};

struct DecodedPng {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::vector<std::uint8_t> pixels;  // rows from the top without padding
};

// Fills `to` with the next `size` bytes of a file; false when there are not that many.
using ByteSource = std::function<bool(std::uint8_t* to, std::size_t size)>;

// Absent for anything that is no sound PNG, or is beyond picture_limits.h. Memory is taken for the
// pixels alone, and only once the size is known to be within the limits.
std::optional<DecodedPng> decodedPng(const ByteSource& source, PixelFormat format);

}  // namespace brevant
