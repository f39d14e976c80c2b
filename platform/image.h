#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brevant {

// A bitmap: `pixels` holds pixelWidth x pixelHeight premultiplied RGBA bytes, rows from the top
// without padding. Its size in points is the pixel size divided by `scale`.
struct Image {
  int pixelWidth = 0;
  int pixelHeight = 0;
  double scale = 1;
  std::vector<std::uint8_t> pixels;
  std::string name;  // of a resource image; empty for every other

  double width() const { return pixelWidth / scale; }
  double height() const { return pixelHeight / scale; }

  bool operator==(const Image&) const = default;
};

// Images are shared and never changed once made; a null reference is "no image".
using ImageRef = std::shared_ptr<const Image>;

}  // namespace brevant
