// SPDX-License-Identifier: MIT
// How much of a property list is believed: the settings that the tracker writes, and the archives
// in its cache of icons. The library that reads them builds the whole tree at once.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brevant {

// Settings take a few kilobytes. The library calls itself for each level of XML, and so many bytes
// cannot nest deep enough to overflow the stack.
inline constexpr std::size_t kMaxPropertyListSize = std::size_t{256} << 10U;

// Of lists within lists, where the depth is known beforehand. Settings nest three levels.
inline constexpr std::size_t kMaxPropertyListDepth = 64;

// In a binary list objects refer to each other by number, so that a few bytes can stand for any
// number of them. As a tree one takes 300 bytes: 20 MB.
inline constexpr std::uint64_t kMaxPropertyListObjects = 65'536;

// The texts and data of that tree: an archive's picture, twice.
inline constexpr std::uint64_t kMaxPropertyListPayload = std::uint64_t{16} << 20U;

}  // namespace brevant
