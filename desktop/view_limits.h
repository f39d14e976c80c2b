// How much of a view tree is drawn. A widget of ours has some thirty nodes, eight deep, with one
// icon; what is beyond is left out and reported.
#pragma once

#include <QtGlobal>

namespace brevant {

// Views and their modifiers, as a modifier is a box around its view.
inline constexpr int kMostNodes = 1000;

// Of boxes within boxes: each asks the next for its size, by calling it.
inline constexpr int kDeepestView = 256;

// More does not fit a widget, and every letter is measured.
inline constexpr qsizetype kLongestText = 1000;

// Of all pictures of a tree together: an icon may have 16 million, which take 64 MB until it is
// scaled down.
inline constexpr qint64 kMostPixels = 4096 * 4096;
inline constexpr int kPictureMegabytes = 64;

// A picture that is kept: the largest is drawn on 170 points, with three pixels each.
inline constexpr int kMostKeptSide = 1024;

}  // namespace brevant
