// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/image.h"

namespace brevant {

// PNG in and out. Thread-safe; never throws. A picture beyond picture_limits.h is refused before
// any of it is decoded.
class ImageCodec {
 public:
  virtual ~ImageCodec() = default;

  // Null for anything that is no acceptable PNG.
  virtual ImageRef decodePng(std::span<const std::uint8_t> bytes, double scale) const = 0;

  // An image file by path; its name gives the scale ("…@2x.png"). Null when missing or unreadable.
  virtual ImageRef imageWithContentsOfFile(const std::string& path) const = 0;

  // The same with its coverage alone, in black: for what is shown in one colour anyway.
  virtual ImageRef silhouetteWithContentsOfFile(const std::string& path) const = 0;

  virtual std::optional<std::vector<std::uint8_t>> encodePng(const Image& image) const = 0;

  // The image in a keyed archive (binary or XML): the root object is its PNG data, or an object
  // with a data field that is. Absent when the bytes are no archive; null when it holds no image,
  // or is too large.
  virtual std::optional<ImageRef> unarchiveImage(std::span<const std::uint8_t> archive) const = 0;
};

}  // namespace brevant
