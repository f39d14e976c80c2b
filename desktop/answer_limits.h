// SPDX-License-Identifier: MIT
// How much is believed of what another process says, `brevant` included.
#pragma once

#include <QtGlobal>

namespace brevant {

// An honest answer holds a few icons in base64; the largest of them has a few megabytes.
inline constexpr qsizetype kMostOutput = qsizetype{16} << 20;

// Of what is said on stderr the last line is shown.
inline constexpr qsizetype kMostErrors = qsizetype{64} << 10;
inline constexpr qsizetype kLongestError = 200;

// A view takes two levels and the deepest of them have some twenty. Qt itself would go to 1024.
inline constexpr int kDeepestJson = 64;

// Ten thousand categories have 90,000; each takes 16 bytes and what it holds.
inline constexpr int kMostJsonValues = 300'000;

}  // namespace brevant
