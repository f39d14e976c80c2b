// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace brevant {

struct TextStyle {
  QFont font;
  bool monospacedDigit = false;  // every digit in a cell as wide as the widest
  int lineLimit = 0;             // 0: as many lines as there is room for
  double minimumScaleFactor = 1;
};

// A text set in lines, ready to draw again and again. The lines are set at full size; `scale` says
// how much they shrink when drawn.
struct SetText {
  struct Line {
    QList<QGlyphRun> runs;  // positions from the left end of the baseline
    double width = 0, height = 0;
    double baseline = 0;                 // from the top
    double bearing = 0, endBearing = 0;  // what is blank before and after its ink
  };

  QList<Line> lines;
  double scale = 1;
  bool isComplete = true;  // nothing was left out, and no line is wider than was allowed

  [[nodiscard]] QSizeF size() const;
  // In the middle of the height of `room`; each line at the given side of it.
  void draw(QPainter& painter, const QRectF& room, Qt::Alignment side) const;
};

inline constexpr double kAnyWidth = 100000;

// Sets the text at full size. What does not fit into so many lines (0: any number) of that width is
// replaced by an ellipsis.
[[nodiscard]] SetText setText(const QString& text, const TextStyle& style, double width,
                              int mostLines);

// Sets the text as large as it fits into the room, shrinking it down to the style's minimum scale
// factor; only what does not fit then is replaced by an ellipsis.
[[nodiscard]] SetText fitText(const QString& text, const TextStyle& style, QSizeF room);

}  // namespace brevant
