// SPDX-License-Identifier: MIT
// How much of a view tree is drawn. A widget of ours has some thirty nodes, eight deep, with one
// icon; what is beyond is left out and reported.
#pragma once

#include <QtGlobal>

namespace brevant {

// Views and their modifiers, as a modifier is a box around its view.
inline constexpr int kMostNodes = 1000;

// Of boxes within boxes: each asks the next for its size, by calling it.
inline constexpr int kDeepestView = 256;

// More does not fit a widget, and every letter is measured: of one text, and of a tree.
inline constexpr qsizetype kLongestText = 1000, kMostLetters = 10'000;

// Of all pictures of a tree together: an icon may have 16 million, which take 64 MB until it is
// scaled down.
inline constexpr qint64 kMostPixels = qint64{4096} * 4096;
inline constexpr int kPictureMegabytes = 64;

// A picture that is kept or drawn: the largest of ours has 170 points, with three pixels each. A
// frame can ask for any size; what is larger is stretched as it is painted.
inline constexpr int kMostKeptSide = 1024;

}  // namespace brevant
