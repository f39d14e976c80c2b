// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace brevant {

// Looks at data for as long as that may be what is sought.
using DataVisitor = std::function<bool(std::span<const std::uint8_t> data)>;

// Shows the data in a keyed archive (binary or XML) until the visitor has had enough: its root
// object when that is data, else every data field of the root object, each data once, however many
// fields refer to it; nothing of an archive that is too large. False when the bytes are no keyed
// archive.
bool visitArchivedData(std::span<const std::uint8_t> archive, const DataVisitor& goesOn);

}  // namespace brevant
