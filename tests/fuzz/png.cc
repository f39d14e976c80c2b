// SPDX-License-Identifier: MIT

// A picture that decodes has the pixels that its size says, and can be written and read back.
#include <cstdint>
#include <cstdlib>

#include "platform/linux/image_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto codec = brevant::makeImageCodec();
  const brevant::ImageRef image = codec->decodePng({data, size}, 1);
  if (!image) return 0;
  const auto pixels =
      static_cast<std::size_t>(image->pixelWidth) * static_cast<std::size_t>(image->pixelHeight);
  if (image->pixels.size() != pixels * 4) std::abort();
  if (pixels > 4096) return 0;
  const auto written = codec->encodePng(*image);
  if (!written || !codec->decodePng(*written, 1)) std::abort();
  return 0;
}
