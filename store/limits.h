// SPDX-License-Identifier: MIT

// What the store takes of a database file that others wrote. Beyond a limit a statement fails, as
// it would on a damaged file.
#pragma once

#include <cstddef>

namespace brevant {

// A name or a comment of more bytes than this is none: the whole log of years is smaller.
inline constexpr int kMaxValueSize = 8 << 20;

// A query over twenty years takes a fraction of a second; ten is a view or a trigger without end.
inline constexpr double kMostSecondsOfWork = 10;

// SQLite's steps between two looks at the clock: about a millisecond.
inline constexpr int kStepsBetweenLooks = 100'000;

// Bytes that are read before it is asked how large the file is.
inline constexpr std::size_t kReadWithoutQuestion = std::size_t{1} << 20U;

}  // namespace brevant
