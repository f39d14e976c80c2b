// SPDX-License-Identifier: MIT
#include "desktop/typesetting.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

#include "desktop/fonts.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

TextStyle styleOf(int size) {
  return {makeFont({size, QFont::Normal}), false, 0, 1};
}

double widthOf(const QString& text, const TextStyle& style) {
  return setText(text, style, kAnyWidth, 1).size().width();
}

TEST(Typesetting, WrapsUpToItsLineLimit) {
  const QString name = u"one two three four five six seven eight nine ten"_s;
  const TextStyle style = styleOf(17);
  const double third = widthOf(name, style) / 3;
  EXPECT_GE(setText(name, style, third, 0).lines.size(), 3);
  EXPECT_TRUE(setText(name, style, third, 0).isComplete);
  const SetText two = setText(name, style, third, 2);
  EXPECT_EQ(two.lines.size(), 2);
  EXPECT_FALSE(two.isComplete);
  EXPECT_LE(two.size().width(), third + 0.5);
  EXPECT_EQ(setText(u"a\nb"_s, style, kAnyWidth, 0).lines.size(), 2);
}

TEST(Typesetting, WrapsTheSameWithDigitsInCells) {
  TextStyle style = styleOf(20);
  style.monospacedDigit = true;
  for (double width = 40; width < 300; width += 13) {
    const SetText set = setText(u"111 111 111 111 111 111 11"_s, style, width, 0);
    EXPECT_LE(set.size().width(), width + 0.5) << width;
  }
}

TEST(Typesetting, OtherScriptsKeepTheLineHeightUnlessTheyReachFurther) {
  const TextStyle style = styleOf(17);
  const double height = QFontMetricsF(style.font).height();
  EXPECT_NEAR(setText(u"読書の時間"_s, style, kAnyWidth, 1).size().height(), height, 0.5);
  const SetText arabic = setText(u"قراءة الكتب"_s, style, kAnyWidth, 1);
  EXPECT_LT(arabic.size().height(), height * 1.3);
  for (const QGlyphRun& run : arabic.lines.front().runs) {
    const QRectF ink = run.boundingRect().translated(0, arabic.lines.front().baseline);
    EXPECT_GE(ink.top(), -0.1);
    EXPECT_LE(ink.bottom(), arabic.size().height() + 0.1);
  }
}

TEST(Typesetting, FitsIntoItsOwnRoundedWidth) {
  for (const QString& text :
       {u"Reading"_s, u"قراءة الكتب"_s, u"読書の時間"_s, u"  "_s, u"AVAT"_s}) {
    const TextStyle style = styleOf(20);
    const SetText natural = setText(text, style, kAnyWidth, 1);
    EXPECT_TRUE(setText(text, style, natural.size().width(), 1).isComplete) << text.toStdString();
  }
  EXPECT_GT(widthOf(u"  "_s, styleOf(17)), 5) << "spaces are there to keep a distance";
}

}  // namespace
}  // namespace brevant
