#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace brevant {

// The data in a keyed archive (binary or XML): its root object when that is data, else every data
// field of the root object. Empty when the archive is none.
std::vector<std::vector<std::uint8_t>> archivedData(std::span<const std::uint8_t> archive);

}  // namespace brevant
