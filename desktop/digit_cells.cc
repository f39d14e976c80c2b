// SPDX-License-Identifier: MIT
#include "desktop/digit_cells.h"

#include <QHash>
#include <QRawFont>
#include <QSet>
#include <algorithm>
#include <vector>

namespace brevant {
namespace {

bool isDigit(QChar c) {
  return c.category() == QChar::Number_DecimalDigit;
}

QChar zeroOfScript(QChar digit) {
  return QChar(digit.unicode() - digit.digitValue());
}

QString digitsFrom(QChar zero) {
  QString digits(10, QChar());
  for (int i = 0; i < 10; ++i) digits[i] = QChar(zero.unicode() + i);
  return digits;
}

// How much narrower than its cell each digit of the text's scripts is, by its glyph in one font.
QHash<quint32, double> surplusByGlyph(const QRawFont& font, QStringView text) {
  QSet<QChar> zeros;
  for (const QChar c : text) {
    if (isDigit(c)) zeros.insert(zeroOfScript(c));
  }
  QHash<quint32, double> surplus;
  for (const QChar zero : zeros) {
    const QList<quint32> glyphs = font.glyphIndexesForString(digitsFrom(zero));
    const QList<QPointF> advances = font.advancesForGlyphIndexes(glyphs);
    double cell = 0;
    for (const QPointF& advance : advances) cell = std::max(cell, advance.x());
    for (qsizetype i = 0; i < std::min(glyphs.size(), advances.size()); ++i) {
      if (glyphs[i] != 0) surplus.insert(glyphs[i], cell - advances[i].x());
    }
  }
  return surplus;
}

struct PlacedGlyph {
  qsizetype run, index;
  double x;
  double surplus;  // of the cell, half of it before the glyph
};

// The first digit of a line has half a cell: with spare room before it, it would not stand where
// the lines around it begin, and nothing trembles for a digit that seldom changes.
bool startsWithDigit(QStringView text) {
  return !text.isEmpty() && isDigit(text.front()) && !text.isRightToLeft();
}

}  // namespace

double digitCellsSurplus(QStringView text, const QFontMetricsF& metrics) {
  QHash<QChar, double> cellWidths;
  double surplus = 0;
  double share = startsWithDigit(text) ? 0.5 : 1;
  for (const QChar c : text) {
    if (!isDigit(c)) continue;
    double& width = cellWidths[c];
    if (width == 0) {
      for (const QChar digit : digitsFrom(zeroOfScript(c))) {
        width = std::max(width, metrics.horizontalAdvance(digit));
      }
    }
    surplus += share * (width - metrics.horizontalAdvance(c));
    share = 1;
  }
  return surplus;
}

void spreadIntoDigitCells(QList<QGlyphRun>& runs, QStringView digitsOf) {
  std::vector<PlacedGlyph> placed;
  std::vector<QList<QPointF>> positions;
  for (qsizetype run = 0; run < runs.size(); ++run) {
    const QHash<quint32, double> surplus = surplusByGlyph(runs[run].rawFont(), digitsOf);
    const QList<quint32> glyphs = runs[run].glyphIndexes();
    positions.push_back(runs[run].positions());
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
      placed.push_back({run, i, positions.back()[i].x(), surplus.value(glyphs[i])});
    }
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const PlacedGlyph& a, const PlacedGlyph& b) { return a.x < b.x; });
  double shift = 0;
  if (startsWithDigit(digitsOf) && !placed.empty()) shift = -placed.front().surplus / 2;
  for (const PlacedGlyph& glyph : placed) {
    positions[static_cast<std::size_t>(glyph.run)][glyph.index].rx() += shift + glyph.surplus / 2;
    shift += glyph.surplus;
  }
  for (qsizetype run = 0; run < runs.size(); ++run) {
    runs[run].setPositions(positions[static_cast<std::size_t>(run)]);
  }
}

}  // namespace brevant
