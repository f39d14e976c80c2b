#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/image.h"

namespace brevant {

// Above this size a keyed archive is not read.
inline constexpr std::size_t kMaxArchiveSize = std::size_t{8} << 20U;

// PNG in and out. Thread-safe; never throws. A picture of more than 16 million pixels or of more
// than 16,384 pixels on a side is refused before any of it is decoded.
class ImageCodec {
 public:
  virtual ~ImageCodec() = default;

  // Null for anything that is no acceptable PNG.
  virtual ImageRef decodePng(std::span<const std::uint8_t> bytes, double scale) const = 0;

  // An image file by path; its name gives the scale ("…@2x.png"). Null when missing or unreadable.
  virtual ImageRef imageWithContentsOfFile(const std::string& path) const = 0;

  virtual std::optional<std::vector<std::uint8_t>> encodePng(const Image& image) const = 0;

  // The image in a keyed archive (binary or XML): the root object is its PNG data, or an object
  // with a data field that is. Absent when the bytes are no archive; null when it holds no image,
  // or is too large.
  virtual std::optional<ImageRef> unarchiveImage(std::span<const std::uint8_t> archive) const = 0;
};

}  // namespace brevant
