// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace brevant {

// The data in a keyed archive (binary or XML): its root object when that is data, else every data
// field of the root object; nothing of an archive that is too large. Absent when the bytes are no
// keyed archive.
std::optional<std::vector<std::vector<std::uint8_t>>> archivedData(
    std::span<const std::uint8_t> archive);

}  // namespace brevant
