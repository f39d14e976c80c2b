// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brevant {

// A picture of one colour. It takes a quarter of the memory, and its colours share their coverage.
struct Silhouette {
  using Coverage = std::vector<std::uint8_t>;
  using Palette = std::array<std::array<std::uint8_t, 4>, 256>;

  std::shared_ptr<const Coverage> coverage;  // one byte a pixel, never null
  Palette palette{};                         // what each coverage is as premultiplied RGBA

  bool operator==(const Silhouette& other) const {
    return *coverage == *other.coverage && palette == other.palette;
  }
};

// A bitmap of pixelWidth x pixelHeight, rows from the top without padding: premultiplied RGBA bytes
// in `pixels`, or a silhouette. Its size in points is the pixel size divided by `scale`.
struct Image {
  int pixelWidth = 0;
  int pixelHeight = 0;
  double scale = 1;
  std::vector<std::uint8_t> pixels;
  std::string name;                        // of a resource image; empty for every other
  std::optional<Silhouette> silhouette{};  // `pixels` is empty then

  double width() const { return pixelWidth / scale; }
  double height() const { return pixelHeight / scale; }

  bool operator==(const Image&) const = default;
};

// Images are shared and never changed once made; a null reference is "no image".
using ImageRef = std::shared_ptr<const Image>;

}  // namespace brevant
