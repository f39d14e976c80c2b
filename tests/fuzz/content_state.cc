// SPDX-License-Identifier: MIT

// A content state that decodes must encode, and decode again to the same value.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "live/activity_attribute.h"
#include "platform/linux/json_coder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brevant;
  static const auto coder = makeJsonCoder();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto state = ContentState::decoded(*coder, text);
  if (std::holds_alternative<DecodingError>(state)) return 0;
  const auto coded = std::get<ContentState>(state).encoded(*coder);
  if (!coded) std::abort();
  const auto again = ContentState::decoded(*coder, *coded);
  if (!(std::get<ContentState>(state) == std::get<ContentState>(again))) std::abort();
  return 0;
}
