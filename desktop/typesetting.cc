// SPDX-License-Identifier: MIT
#include "desktop/typesetting.h"

#include <QFontMetricsF>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "desktop/digit_cells.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Widgets have whole sizes: a text fits into its own width although that was rounded.
constexpr double kTolerance = 0.01;
constexpr int kScaleSteps = 6;
constexpr int kWrapAttempts = 10;

struct BrokenText {
  QList<SetText::Line> lines;
  qsizetype shown = 0;  // characters in the lines
  qsizetype lastLineStart = 0;
  double width = 0;  // of the widest line
};

QStringView textOf(const QTextLine& line, const QString& text) {
  return QStringView(text).mid(line.textStart(), line.textLength());
}

bool isLastOf(const QTextLine& line, const QString& text) {
  return line.textStart() + line.textLength() == text.size();
}

double digitsSurplus(const QTextLine& line, const QString& text, const TextStyle& style) {
  if (!style.monospacedDigit) return 0;
  return digitCellsSurplus(textOf(line, text), QFontMetricsF(style.font));
}

// Spaces at the end of the text are wanted; those where a line wraps are not.
double widthOf(const QTextLine& line, const QString& text, const TextStyle& style) {
  const double width = isLastOf(line, text) ? line.horizontalAdvance() : line.naturalTextWidth();
  return width + digitsSurplus(line, text, style);
}

void layOut(QTextLine& line, const QString& text, const TextStyle& style, double width) {
  // Wrapping wants room for overhanging letters too; what is just as wide as the text has none.
  line.setLineWidth(kAnyWidth);
  if (widthOf(line, text, style) <= width + kTolerance) return;
  line.setLineWidth(width);
  // What the digits' cells add pushes words out of the line, some of it with them.
  for (int attempt = 0; attempt < kWrapAttempts; ++attempt) {
    const double excess = widthOf(line, text, style) - width;
    if (excess <= kTolerance) return;
    line.setLineWidth(std::max(1.0, line.naturalTextWidth() - excess));
  }
}

// Every line is as high as the typeface says, whatever other fonts have helped out; but letters
// that reach further are not cut off.
void setHeight(SetText::Line& line, const QFontMetricsF& metrics) {
  double above = metrics.ascent(), below = metrics.descent();
  for (const QGlyphRun& run : line.runs) {
    const QRectF ink = run.boundingRect();
    above = std::max(above, -ink.top());
    below = std::max(below, ink.bottom());
  }
  line.baseline = above;
  line.height = above + below;
}

// What is blank at the ends of a line, before and after the ink of its outermost letters. Blanks
// that are letters count as ink: they are wanted.
struct Bearings {
  double left = 0, right = 0;
};

Bearings bearingsOf(const QList<QGlyphRun>& runs, double width) {
  double first = kAnyWidth, last = -kAnyWidth;
  Bearings bearings;
  for (const QGlyphRun& run : runs) {
    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
      const double x = positions[i].x();
      const QRectF ink = run.rawFont().boundingRect(glyphs[i]);
      if (x < first) bearings.left = ink.isEmpty() ? 0 : x + ink.left();
      if (x > last) bearings.right = ink.isEmpty() ? 0 : width - x - ink.right();
      first = std::min(first, x);
      last = std::max(last, x);
    }
  }
  return {std::max(0.0, bearings.left), std::max(0.0, bearings.right)};
}

SetText::Line finished(const QTextLine& line, const QString& text, const TextStyle& style) {
  SetText::Line result{line.glyphRuns(), widthOf(line, text, style)};
  double left = line.naturalTextRect().left();
  for (const QGlyphRun& run : result.runs) {
    for (const QPointF& position : run.positions()) {
      if (isLastOf(line, text)) left = std::min(left, position.x());
    }
  }
  const QPointF origin(left, line.y() + line.ascent());
  for (QGlyphRun& run : result.runs) {
    QList<QPointF> positions = run.positions();
    for (QPointF& position : positions) position -= origin;
    run.setPositions(positions);
    run.setBoundingRect({});  // from now on that of the glyphs
  }
  setHeight(result, QFontMetricsF(style.font));
  if (style.monospacedDigit) spreadIntoDigitCells(result.runs, textOf(line, text));
  const Bearings bearings = bearingsOf(result.runs, result.width);
  result.bearing = bearings.left;
  // The last digit of a timer keeps its cell, or it would tremble.
  if (!style.monospacedDigit) result.endBearing = bearings.right;
  return result;
}

BrokenText breakText(const QString& text, const TextStyle& style, double width, int mostLines) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setUseDesignMetrics(true);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  QTextLayout layout(text, style.font);
  layout.setTextOption(option);
  layout.beginLayout();
  double top = 0;
  while (mostLines == 0 || layout.lineCount() < mostLines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    layOut(line, text, style, width);
    line.setPosition({0, top});
    top += line.height();
  }
  layout.endLayout();

  BrokenText broken;
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    broken.lines.append(finished(line, text, style));
    broken.width = std::max(broken.width, broken.lines.last().width);
    broken.lastLineStart = line.textStart();
    broken.shown = line.textStart() + line.textLength();
  }
  return broken;
}

// The first line of a text that does not fit on one: as much of it as leaves room for the ellipsis.
SetText::Line lineWithEllipsis(const QString& text, const TextStyle& style, double width) {
  const QString firstLine = text.section(QChar::LineSeparator, 0, 0);
  QList<qsizetype> ends;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, firstLine);
  for (qsizetype end = 0; end >= 0; end = finder.toNextBoundary()) ends.append(end);
  const auto cutAt = [&](qsizetype end) {
    QString kept = firstLine.left(end);
    while (!kept.isEmpty() && kept.back().isSpace()) kept.chop(1);
    return breakText(kept + u'…', style, kAnyWidth, 1).lines.value(0);
  };
  // The first end at which it is too long; even the ellipsis alone may be.
  const auto tooLong = std::partition_point(ends.cbegin() + 1, ends.cend(), [&](qsizetype end) {
    return cutAt(end).width <= width + kTolerance;
  });
  return cutAt(*(tooLong - 1));
}

SetText fitAt(double scale, const QString& text, const TextStyle& style, QSizeF room) {
  const double lineHeight = QFontMetricsF(style.font).height();
  int lines = std::max(1, static_cast<int>((room.height() / scale + kTolerance) / lineHeight));
  if (style.lineLimit > 0) lines = std::min(lines, style.lineLimit);
  SetText set = setText(text, style, room.width() / scale, lines);
  set.scale = scale;
  return set;
}

}  // namespace

QSizeF SetText::size() const {
  QSizeF size(0, 0);
  for (const Line& line : lines) {
    size = {std::max(size.width(), line.width), size.height() + line.height};
  }
  return size * scale;
}

void SetText::draw(QPainter& painter, const QRectF& room, Qt::Alignment side) const {
  painter.save();
  painter.translate(room.left(), room.center().y() - size().height() / 2);
  painter.scale(scale, scale);
  double top = 0;
  for (const Line& line : lines) {
    const double spare = room.width() / scale - line.width;
    double left = -line.bearing;  // flush with what stands above and below
    if (side & Qt::AlignHCenter) left = spare / 2;
    if (side & Qt::AlignRight) left = spare + line.endBearing;
    for (const QGlyphRun& run : line.runs) painter.drawGlyphRun({left, top + line.baseline}, run);
    top += line.height;
  }
  painter.restore();
}

SetText setText(const QString& text, const TextStyle& style, double width, int mostLines) {
  QString lines = text;
  lines.replace(u'\n', QChar::LineSeparator);
  BrokenText broken = breakText(lines, style, width, mostLines);
  SetText set;
  set.isComplete = broken.shown == lines.size() && broken.width <= width + kTolerance;
  if (broken.shown < lines.size()) {
    broken.lines.last() = lineWithEllipsis(lines.mid(broken.lastLineStart), style, width);
  }
  set.lines = std::move(broken.lines);
  return set;
}

SetText fitText(const QString& text, const TextStyle& style, QSizeF room) {
  SetText full = fitAt(1, text, style, room);
  if (full.isComplete || style.minimumScaleFactor >= 1) return full;
  SetText best = fitAt(style.minimumScaleFactor, text, style, room);
  if (!best.isComplete) return best;
  double fits = style.minimumScaleFactor, tooLarge = 1;
  for (int step = 0; step < kScaleSteps; ++step) {
    const double middle = (fits + tooLarge) / 2;
    SetText set = fitAt(middle, text, style, room);
    (set.isComplete ? fits : tooLarge) = middle;
    if (set.isComplete) best = std::move(set);
  }
  return best;
}

}  // namespace brevant
