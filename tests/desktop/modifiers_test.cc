// SPDX-License-Identifier: MIT

// Every modifier of the contract, measured in what is drawn.
#include "desktop/modifiers.h"

#include <gtest/gtest.h>

#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray square(const QByteArray& modifiers, int points = 10, int pixels = 10) {
  const QByteArray side = QByteArray::number(points);
  return "{'view':'Image','image':{'width':" + side + ",'height':" + side + ",'scale':1,'png':'" +
         fourColors(pixels) + "'},'modifiers':[" + modifiers + "]}";
}

QByteArray withModifiers(QByteArray view, const QByteArray& modifiers) {
  view.chop(2);  // of a box, which has some
  return view + "," + modifiers + "]}";
}

TEST(Modifiers, FontsHaveTheSizesOfTheirStyles) {
  const std::pair<const char*, int> styles[] = {
      {"largeTitle", 34}, {"title", 28},   {"title2", 22},      {"title3", 20},   {"headline", 17},
      {"body", 17},       {"callout", 16}, {"subheadline", 15}, {"footnote", 13}, {"caption", 12}};
  for (const auto& [style, size] : styles) {
    const QByteArray font = "{'font':{'style':'" + QByteArray(style) + "'}}";
    // A capital of the typeface is 0.727 of its size high.
    EXPECT_NEAR(inkOf(drawn(text("H", font), {}, 3)).height() / 3.0, size * 0.727, 0.7) << style;
  }
  for (const int size : {9, 17, 44, 100}) {
    const QByteArray font = "{'font':{'size':" + QByteArray::number(size) + "}}";
    EXPECT_NEAR(inkOf(drawn(text("H", font))).height(), size * 0.727, 1.5) << size;
  }
}

TEST(Modifiers, HeavierWeightsPutDownMoreInk) {
  const char* const heavier[] = {
      "{'font':{'size':40,'weight':'regular'}}",
      "{'font':{'size':40,'weight':'medium'}}",
      "{'font':{'size':40,'weight':'regular'}},{'fontWeight':'semibold'}",
      "{'font':{'size':40}},{'bold':true}",
  };
  double before = 0;
  for (const char* modifiers : heavier) {
    const double ink = coverageOf(drawn(text("H", modifiers)));
    EXPECT_GT(ink, before * 1.03) << modifiers;
    before = ink;
  }
  EXPECT_GT(coverageOf(drawn(text("H", "{'font':{'style':'headline'}}"))),
            coverageOf(drawn(text("H", "{'font':{'style':'body'}}"))));
}

TEST(Modifiers, TheInnermostFontCountsForEachTextInside) {
  const QImage image = drawn(
      stack("HStack", {text("H", "{'font':{'size':30}},{'padding':{'trailing':8}}"), text("H")},
            "{'font':{'size':60}},{'foregroundColor':{'red':1,'green':0,'blue':0}}"));
  const int middle = 22;  // between the two letters
  EXPECT_NEAR(inkOf(image.copy(0, 0, middle, image.height())).height(), 30 * 0.727, 1.5);
  EXPECT_NEAR(inkOf(image.copy(middle, 0, 99, image.height())).height(), 60 * 0.727, 1.5);
  for (const QRect& part : {QRect(0, 0, middle, image.height()), QRect(middle, 0, 99, 99)}) {
    const QPoint stem = inkOf(image.copy(part)).topLeft() + part.topLeft() + QPoint(2, 2);
    EXPECT_EQ(image.pixelColor(stem), QColor(Qt::red));
  }
}

TEST(Modifiers, MonospacedDigitsKeepTheirWidth) {
  const QByteArray style = "{'font':{'size':40}},{'monospacedDigit':true}";
  for (const auto& [digits, others] :
       {std::pair("21:11", "20:00"), {"Room 101", "Room 889"}, {"٤١:١١", "٤٥:٦٧"}})
    EXPECT_EQ(viewOf(text(digits, style))->sizeHint(), viewOf(text(others, style))->sizeHint());
  EXPECT_NE(viewOf(text("11:11"))->sizeHint(), viewOf(text("00:00"))->sizeHint());
  // And so what follows them keeps its place: drawn, the last letter does not move.
  for (const int size : {12, 17, 34, 44}) {
    const QByteArray font = "{'font':{'size':" + QByteArray::number(size) + "}}";
    const auto endOf = [&](const QByteArray& digits, const QByteArray& more) {
      return inkOf(drawn(text(digits + "H", font + more), {400, 60}, 2)).right();
    };
    const QByteArray cells = ",{'monospacedDigit':true}";
    EXPECT_NEAR(endOf("21:11", cells), endOf("20:00", cells), 1) << size;
    EXPECT_LT(endOf("21:11", ""), endOf("20:00", "") - 4) << size;
  }
}

TEST(Modifiers, TextsShrinkToTheirRoomAndNoFurtherThanTheyMay) {
  for (const int size : {17, 20, 28, 44}) {
    const QByteArray font = "{'font':{'size':" + QByteArray::number(size) + "}},{'lineLimit':1}";
    const QSize whole = viewOf(text("HHHHHHHHHH", font))->sizeHint();
    const auto heightIn = [&](double share, const QByteArray& least) {
      const QSize room(qRound(whole.width() * share), whole.height());
      const QByteArray modifiers = font + ",{'minimumScaleFactor':" + least + "}";
      return inkOf(drawn(text("HHHHHHHHHH", modifiers), room, 3)).height() / 3.0;
    };
    const double full = size * 0.727;  // a capital's height
    EXPECT_NEAR(heightIn(1, "0.5"), full, 0.7) << size;
    EXPECT_NEAR(heightIn(0.8, "0.5"), full * 0.8, 0.7) << size;
    EXPECT_NEAR(heightIn(0.3, "0.5"), full * 0.5, 0.7) << size;
    EXPECT_NEAR(heightIn(0.3, "0.7"), full * 0.7, 0.7) << size;
    EXPECT_NEAR(heightIn(0.3, "1"), full, 0.7) << size;
  }
}

TEST(Modifiers, TextsStayInTheirRoomWithEveryLineLimit) {
  const QByteArray name = "Reviewing the quarterly architecture proposals";
  const QSize room(120, 200);
  const int line = viewOf(text(name))->sizeHint().height();
  const auto height = [&](const QByteArray& modifiers) {
    return viewOf(text(name, modifiers))->heightForWidth(room.width());
  };
  EXPECT_EQ(viewOf(text(name, "{'lineLimit':1}"))->sizeHint().height(), line);
  EXPECT_NEAR(height("{'lineLimit':2}"), 2 * line, 2);
  EXPECT_GE(height(""), 3 * line);
  for (const char* modifiers :
       {"{'lineLimit':1}", "{'lineLimit':2}", "", "{'lineLimit':1},{'minimumScaleFactor':0.5}"}) {
    const QRect ink = inkOf(drawn(text(name, modifiers), room));
    EXPECT_GT(ink.width(), 80) << modifiers;
    EXPECT_LT(ink.right(), room.width()) << modifiers;
  }
}

TEST(Modifiers, LinesStandWhereTheirAlignmentSays) {
  const auto leftOf = [](const QByteArray& alignment, const char* locale) {
    const QByteArray modifiers = "{'multilineTextAlignment':'" + alignment + "'}";
    return inkOf(drawn(*viewOf(text("HHHH", modifiers), drawingContext(locale)), {200, 30})).left();
  };
  EXPECT_LT(leftOf("leading", "en_US"), 5);
  EXPECT_NEAR(leftOf("center", "en_US"), 78, 5);
  EXPECT_GT(leftOf("trailing", "en_US"), 145);
  EXPECT_EQ(leftOf("leading", "ar_EG"), leftOf("trailing", "en_US"));
}

TEST(Modifiers, FramesHaveTheirSizeAndAlignTheirContent) {
  const auto ink = [](const QByteArray& frame, QSize room) {
    return inkOf(drawn(withModifiers(box(10, 6), "{'frame':" + frame + "}"), room));
  };
  EXPECT_EQ(viewOf(withModifiers(box(10, 6), "{'frame':{'width':50,'height':30}}"))->sizeHint(),
            QSize(50, 30));
  EXPECT_EQ(ink("{'width':50,'height':30}", {50, 30}), QRect(20, 12, 10, 6));
  EXPECT_EQ(ink("{'width':50,'height':30,'alignment':'leading'}", {50, 30}), QRect(0, 12, 10, 6));
  EXPECT_EQ(ink("{'width':50,'height':30,'alignment':'trailing'}", {50, 30}), QRect(40, 12, 10, 6));
  EXPECT_EQ(
      ink("{'maxWidth':'infinity','maxHeight':'infinity','alignment':'topLeading'}", {90, 40}),
      QRect(0, 0, 10, 6));
}

TEST(Modifiers, AFrameWithAMaximumIsAsLargeAsItsRoomUpToThat) {
  const QByteArray wide =
      withModifiers(box(10, 6), "{'frame':{'maxWidth':50,'alignment':'trailing'}}");
  const QByteArray row = stack("HStack", {wide, box(10, 6), "{'view':'Spacer'}"});
  EXPECT_EQ(inkOf(drawn(row, {200, 6})), QRect(40, 0, 20, 6));
  const QByteArray framed =
      withModifiers(box(10, 6), "{'frame':{'maxHeight':40,'alignment':'bottom'}}");
  const QByteArray column = stack("VStack", {framed, box(10, 6), "{'view':'Spacer'}"});
  EXPECT_EQ(inkOf(drawn(column, {10, 200})), QRect(0, 34, 10, 12)) << "all that it may";
  EXPECT_EQ(inkOf(drawn(framed, {10, 30})), QRect(0, 24, 10, 6)) << "all that there is";
}

// What a card or a button does anyway: neither puts anything around the view, at any size.
TEST(Modifiers, ClearContainersAndPlainButtonsAddNothing) {
  const QByteArray label = box(30, 20);
  const QByteArray button =
      "{'view':'Button','intent':{'name':'A','activityId':'B','operation':'stop'},'label':" +
      label + ",'modifiers':[{'buttonStyle':'plain'}]}";
  const QByteArray contained = withModifiers(
      label, "{'containerBackground':{'color':'clear','placement':'widget','alignment':'center'}}");
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    const QImage bare = drawn(label, {}, scale);
    EXPECT_EQ(drawn(button, {}, scale), bare) << scale;
    EXPECT_EQ(drawn(contained, {}, scale), bare) << scale;
    EXPECT_EQ(drawn(contained, {158, 158}, scale), drawn(label, {158, 158}, scale)) << scale;
  }
}

TEST(Modifiers, PaddingGoesToItsEdgesAndIsMirrored) {
  const QByteArray view = withModifiers(
      box(10, 10), "{'padding':{'top':1,'leading':2,'bottom':3,'trailing':'default'}}");
  EXPECT_EQ(viewOf(view)->sizeHint(), QSize(28, 14));
  EXPECT_EQ(inkOf(drawn(view)), QRect(2, 1, 10, 10));
  EXPECT_EQ(inkOf(drawn(*viewOf(view, drawingContext("ar_EG")))), QRect(16, 1, 10, 10));
}

TEST(Modifiers, BackgroundsAreFilledAndRoundAtTheirCorners) {
  const auto filled = [](int radius, double scale) {
    const QByteArray modifiers =
        "{'frame':{'width':40,'height':40}},{'background':{'roundedRectangle':{'cornerRadius':" +
        QByteArray::number(radius) +
        ",'style':'continuous'},'fill':{'red':0,'green':0.5,'blue':1,'alpha':1}}}";
    return drawn(text(" ", modifiers), {}, scale);
  };
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    const QImage image = filled(20, scale);
    EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(0, 128, 255)) << scale;
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << scale;
    // As round as can be: a circle.
    EXPECT_NEAR(coverageOf(image), 3.14159 * 400 * scale * scale, 8 * scale) << scale;
  }
  // A continuous corner covers no more than the circle's square, and little less than its circle.
  const double missing = 1600 - coverageOf(filled(10, 1));
  EXPECT_NEAR(missing, (4 - 3.14159) * 100, 25);
  EXPECT_NEAR(coverageOf(filled(0, 1)), 1600, 0.01);
}

TEST(Modifiers, OpacityCountsForEverythingInside) {
  const QImage image =
      drawn(stack("HStack", {square("{'opacity':0.5}"), box(10, 10)}, "{'opacity':0.5}"));
  EXPECT_NEAR(qAlpha(image.pixel(3, 3)), 64, 2);
  EXPECT_NEAR(qAlpha(image.pixel(15, 5)), 128, 2);
  // Only what stands further out concerns a background.
  const QImage inside = drawn(withModifiers(box(10, 10), "{'opacity':0.25}"));
  EXPECT_NEAR(qAlpha(inside.pixel(5, 5)), 64, 2);
}

TEST(Modifiers, ImagesAreStretchedOnlyWhenResizable) {
  const QSize room(40, 20);
  EXPECT_EQ(inkOf(drawn(square("{'frame':{'width':40,'height':20}}"), room)), QRect(15, 5, 10, 10));
  const QImage stretched = drawn(square("{'resizable':true},{'frame':{'width':40,'height':20}}"));
  EXPECT_EQ(stretched.size(), room);
  EXPECT_EQ(stretched.pixelColor(2, 2), QColor(Qt::red));
  EXPECT_EQ(stretched.pixelColor(38, 2), QColor(Qt::green));
  EXPECT_EQ(stretched.pixelColor(2, 18), QColor(Qt::blue));
}

TEST(Modifiers, ImagesAreSharpAtEveryScale) {
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    // One pixel of the image for one of the screen, at an odd place.
    const int pixels = qRound(20 * scale);
    const QByteArray image = square(
        "{'resizable':true},{'frame':{'width':20,'height':20}},"
        "{'padding':{'leading':1,'top':1}}",
        20, pixels);
    const QImage result = drawn(image, {}, scale);
    int blurred = 0;
    for (const QPoint& edge : {QPoint(0, 0), QPoint(-1, 0), QPoint(0, -1), QPoint(-1, -1)}) {
      const QPoint middle(qRound(scale) + pixels / 2, qRound(scale) + pixels / 2);
      const QColor color = result.pixelColor(middle + edge);
      for (const int part : {color.red(), color.green(), color.blue()}) {
        blurred += part != 0 && part != 255;
      }
    }
    EXPECT_EQ(blurred, 0) << scale;
  }
}

TEST(Modifiers, SymbolsTakeTheForegroundColourAndKeepTheirShape) {
  const QByteArray symbol =
      "{'view':'Image','systemName':'stop.fill','modifiers':[{'resizable':"
      "true},{'frame':{'width':40,'height':20}},{'foregroundColor':"
      "{'red':0,'green':1,'blue':0}}]}";
  const QImage image = drawn(symbol, {}, 2);
  const QRect ink = inkOf(image);
  EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(Qt::green));
  EXPECT_NEAR(ink.width(), ink.height(), 1);
  EXPECT_GT(ink.height(), 20);
}

}  // namespace
}  // namespace brevant
