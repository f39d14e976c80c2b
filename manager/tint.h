// SPDX-License-Identifier: MIT

// An icon's silhouette in one colour, and the packing of colours into integers.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/color.h"
#include "platform/image.h"

namespace brevant {

// The opaque colour packed as 0xRRGGBB. Red is everything from bit 16 up, so that a larger value
// has a red component above 1.
[[nodiscard]] Color colorFromInt(std::uint64_t value);

// `image` as a silhouette in `color`: its alpha channel is the coverage of one solid colour, whose
// own alpha is ignored. Pixel size and scale stay. Without a colour it is the very same image; no
// image stays none.
[[nodiscard]] ImageRef extensionImageWithColor(const ImageRef& image,
                                               const std::optional<Color>& color);

[[nodiscard]] ImageRef extensionImageWithIntColor(const ImageRef& image, std::uint64_t color);

}  // namespace brevant
