// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QList>
#include <QString>

namespace brevant {

// Gives every digit of a line a cell as wide as the widest digit, so that a running timer does not
// tremble although the typeface's digits are proportional.

// How much wider a text becomes.
[[nodiscard]] double digitCellsSurplus(QStringView text, const QFontMetricsF& metrics);

// Moves the glyphs of one line, in visual order, apart; every digit to the middle of its cell.
// `digitsOf` is the line's text.
void spreadIntoDigitCells(QList<QGlyphRun>& runs, QStringView digitsOf);

}  // namespace brevant
