// SPDX-License-Identifier: MIT
#include <cstdint>

#include "platform/linux/image_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto codec = brevant::makeImageCodec();
  (void)codec->unarchiveImage({data, size});
  return 0;
}
