// A property list that parses keeps every key when one more is set.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/linux/property_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brevant;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto before = parsePropertyList(bytes);
  const auto merged = mergedPropertyList(bytes, {{"widgetUpdatedActivity", true}});
  if (before.has_value() != merged.has_value() && size > 0) std::abort();
  if (!before || !merged) return 0;
  const auto after = parsePropertyList(*merged);
  if (!after) std::abort();
  for (const auto& [key, value] : *before) {
    if (!after->contains(key)) std::abort();
    value.toBool();
    value.toInteger();
  }
  return 0;
}
