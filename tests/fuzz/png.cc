// SPDX-License-Identifier: MIT

// A picture that decodes has the pixels that its size says, can be written and read back, and its
// coverage is its alpha.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/linux/image_codec.h"
#include "platform/linux/png_reader.h"

namespace {

using namespace brevant;

std::optional<DecodedPng> decoded(std::span<const std::uint8_t> rest, PixelFormat format) {
  return decodedPng(
      [rest](std::uint8_t* to, std::size_t size) mutable {
        if (size > rest.size()) return false;
        std::copy_n(rest.data(), size, to);
        rest = rest.subspan(size);
        return true;
      },
      format);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto codec = makeImageCodec();
  const auto coverage = decoded({data, size}, PixelFormat::kCoverage);
  const ImageRef image = codec->decodePng({data, size}, 1);
  if (!image) return 0;
  const auto pixels =
      static_cast<std::size_t>(image->pixelWidth) * static_cast<std::size_t>(image->pixelHeight);
  if (image->pixels.size() != pixels * 4) std::abort();
  if (!coverage || coverage->pixels.size() != pixels) std::abort();
  for (std::size_t i = 0; i < pixels; ++i) {
    if (coverage->pixels[i] != image->pixels[4 * i + 3]) std::abort();
  }
  if (pixels > 4096) return 0;
  const auto written = codec->encodePng(*image);
  if (!written || !codec->decodePng(*written, 1)) std::abort();
  return 0;
}
