// SPDX-License-Identifier: MIT

// Whatever is accepted as a link is, to the letter, the link that it stands for.
#include "widget/deep_link.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto link = brevant::DeepLink::parse(text);
  if (link && link->url() != text) std::abort();
  return 0;
}
