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

TEST(Typesetting, DigitsWithCellsTakeTheSameWidthInEveryScript) {
  TextStyle style = styleOf(34);
  ASSERT_NE(widthOf(u"11:11"_s, style), widthOf(u"00:00"_s, style)) << "the typeface has no need";
  style.monospacedDigit = true;
  EXPECT_NEAR(widthOf(u"11:11"_s, style), widthOf(u"00:00"_s, style), 0.1);
  EXPECT_NEAR(widthOf(u"Room 101"_s, style), widthOf(u"Room 889"_s, style), 0.1);
  EXPECT_NEAR(widthOf(u"١١:١١"_s, style), widthOf(u"٤٥:٦٧"_s, style), 0.1);
}

TEST(Typesetting, NoDigitMovesWhenItsNeighbourChanges) {
  TextStyle style = styleOf(44);
  style.monospacedDigit = true;
  const auto lastGlyphAt = [&](const QString& text) {
    return setText(text, style, kAnyWidth, 1).lines.front().runs.back().positions().back().x();
  };
  EXPECT_NEAR(lastGlyphAt(u"10:14"_s), lastGlyphAt(u"28:54"_s), 0.1);
}

TEST(Typesetting, ShrinksOnlyAsFarAsItMayAndThenCutsOff) {
  const QString name = u"Reviewing the quarterly architecture"_s;
  TextStyle style = styleOf(20);
  style.lineLimit = 1;
  style.minimumScaleFactor = 0.5;
  const double natural = widthOf(name, style);
  const double height = QFontMetricsF(style.font).height();
  const struct {
    double share;  // of the natural width
    double scale;
    bool isComplete;
  } cases[] = {{1, 1, true}, {0.8, 0.8, true}, {0.55, 0.55, true}, {0.4, 0.5, false}};
  for (const auto& [share, scale, isComplete] : cases) {
    const SetText set = fitText(name, style, {natural * share, height});
    EXPECT_NEAR(set.scale, scale, 0.02) << share;
    EXPECT_EQ(set.isComplete, isComplete) << share;
    EXPECT_LE(set.size().width(), natural * share + 0.5) << share;
    EXPECT_GT(set.size().width(), natural * share * 0.85) << "wasted room at " << share;
  }
}

TEST(Typesetting, ShrinksForHeightToo) {
  TextStyle style = styleOf(34);
  style.minimumScaleFactor = 0.5;
  const SetText set = fitText(u"12:34"_s, style, {500, QFontMetricsF(style.font).height() * 0.7});
  EXPECT_LE(set.size().height(), QFontMetricsF(style.font).height());
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

TEST(Typesetting, SurvivesRoomForNothing) {
  TextStyle style = styleOf(17);
  style.minimumScaleFactor = 0.5;
  style.monospacedDigit = true;
  for (const QString& text : {u""_s, u"x"_s, u"👩‍👩‍👧 1"_s, u"\u0301\u200f\n\n"_s}) {
    for (const QSizeF& room : {QSizeF(0, 0), QSizeF(1, 1), QSizeF(3, 500)}) {
      EXPECT_LE(fitText(text, style, room).lines.size(), 40);
    }
  }
}

}  // namespace
}  // namespace brevant
