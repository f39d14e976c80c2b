// SPDX-License-Identifier: MIT

// Setting one key of a property list keeps every other as it was, or is refused.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/linux/property_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brevant;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto before = parsePropertyList(bytes);
  const auto merged = mergedPropertyList(bytes, {{"widgetUpdatedActivity", true}});
  if (merged && !before && size > 0) std::abort();
  if (!before || !merged) return 0;
  const auto after = parsePropertyList(*merged);
  if (!after) std::abort();
  for (const auto& [key, value] : *before) {
    if (key == "widgetUpdatedActivity") continue;
    if (!after->contains(key) || !(after->at(key) == value)) std::abort();
    value.toBool();
    value.toInteger();
  }
  return 0;
}
