// SPDX-License-Identifier: MIT
#include "desktop/view_builder.h"

#include <gtest/gtest.h>

#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray kRed = "'red':1,'green':0,'blue':0", kBlue = "'red':0,'green':0,'blue':1";

TEST(Stacks, PlaceTheirChildrenAlongAndAcross) {
  const struct {
    const char *type, *alignment;
    QRect red, blue;
  } cases[] = {
      {"HStack", "top", {0, 0, 10, 4}, {15, 0, 6, 20}},
      {"HStack", "center", {0, 8, 10, 4}, {15, 0, 6, 20}},
      {"HStack", "bottom", {0, 16, 10, 4}, {15, 0, 6, 20}},
      {"VStack", "leading", {0, 0, 10, 4}, {0, 9, 6, 20}},
      {"VStack", "center", {0, 0, 10, 4}, {2, 9, 6, 20}},
      {"VStack", "trailing", {0, 0, 10, 4}, {4, 9, 6, 20}},
  };
  for (const auto& [type, alignment, red, blue] : cases) {
    const QByteArray view = "{'view':'" + QByteArray(type) + "','alignment':'" + alignment +
                            "','spacing':5,'children':[" + box(10, 4, kRed) + "," +
                            box(6, 20, kBlue) + "]}";
    const QImage image = drawn(view);
    EXPECT_EQ(inkOf(image, Qt::red), red) << type << ' ' << alignment;
    EXPECT_EQ(inkOf(image, Qt::blue), blue) << type << ' ' << alignment;
    // The same in a language that reads from the right.
    const QImage mirrored = drawn(*viewOf(view, drawingContext("ar_EG")));
    EXPECT_EQ(mirrored, image.mirrored(true, false)) << type << ' ' << alignment;
  }
}

TEST(Stacks, SpacersTakeWhatIsLeftAndOnlyAlongTheStack) {
  const QByteArray spacer = "{'view':'Spacer'}";
  const QByteArray row = stack("HStack", {box(10, 4, kRed), spacer, box(10, 4, kBlue), spacer});
  EXPECT_EQ(viewOf(row)->sizeHint(), QSize(20, 4));
  const QImage image = drawn(row, {100, 4});
  EXPECT_EQ(inkOf(image, Qt::red).left(), 0);
  EXPECT_EQ(inkOf(image, Qt::blue).left(), 50);

  EXPECT_EQ(inkOf(drawn(stack("VStack", {row, box(100, 4)}), {100, 8}), Qt::blue),
            QRect(50, 0, 10, 4));
}

TEST(Stacks, TakeMissingRoomFromTheLongestText) {
  const QByteArray row = stack(
      "HStack", {"{'view':'Label','title':" +
                     text("Reviewing the quarterly architecture proposals", "{'lineLimit':1}") +
                     ",'icon':" + box(20, 20, kBlue) + "}",
                 text("From 11:00", "{'lineLimit':1}"), box(20, 20, kRed)});
  const auto view = viewOf(row);
  const QImage image = drawn(*view, {300, 24});
  EXPECT_EQ(inkOf(image, Qt::blue).left(), 0);
  EXPECT_EQ(inkOf(image, Qt::red).right(), 299);
  EXPECT_TRUE(isShownInFull(*view, u"From 11:00"_s));
}

TEST(Stacks, GiveWrappingTextsTheirLines) {
  const QByteArray column = "{'view':'VStack','spacing':0,'alignment':'leading','children':[" +
                            text("Reviewing the quarterly architecture proposals with the team") +
                            "," + box(20, 10, kRed) + "]}";
  const auto view = viewOf(column);
  ASSERT_TRUE(view->hasHeightForWidth());
  const int height = view->heightForWidth(120);
  EXPECT_GT(height, 80);
  EXPECT_EQ(inkOf(drawn(*view, {120, height}), Qt::red).bottom(), height - 1);
  // Less than it wants: the text loses lines, the rest keeps its place.
  EXPECT_EQ(inkOf(drawn(*view, {120, 60}), Qt::red), QRect(0, 50, 20, 10));
}

TEST(Stacks, ATimerAndALabelPushWhatFollowsToTheEnd) {
  const QByteArray timer = "{'view':'Text','date':1,'style':'timer'}";
  const QByteArray label =
      "{'view':'Label','title':" + text("x") + ",'icon':" + box(4, 4, kBlue) + "}";
  for (const QByteArray& first : {timer, label}) {
    const QByteArray row = stack("HStack", {first, box(10, 4, kRed)});
    EXPECT_EQ(inkOf(drawn(row, {300, 30}), Qt::red).right(), 299) << first.toStdString();
  }
}

TEST(ViewBuilder, LeavesOutWhatItDoesNotKnow) {
  const QByteArray view = stack(
      "HStack",
      {"{'view':'Hologram'}", box(10, 4, kRed), "{'view':'Image','systemName':'no.such.symbol'}",
       "{'view':'Text','date':1,'style':'lunar'}"},
      "{'sparkles':true}");
  testing::internal::CaptureStderr();
  EXPECT_EQ(drawn(view).size(), QSize(10, 4));
  const std::string first = testing::internal::GetCapturedStderr();
  EXPECT_NE(first.find("Hologram"), std::string::npos);
  EXPECT_NE(first.find("sparkles"), std::string::npos);
  testing::internal::CaptureStderr();
  EXPECT_EQ(drawn(view).size(), QSize(10, 4));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the same again";
}

TEST(ViewBuilder, DrawsSomethingOfEveryHostileTree) {
  QByteArray deep = box(4, 4);
  for (int i = 0; i < 400; ++i) deep = stack("VStack", {deep});
  const QByteArray wide = stack("HStack", QByteArrayList(5000, box(1, 1)));
  const QByteArray shrinking = "{'minimumScaleFactor':0.5},{'monospacedDigit':true}";
  const QByteArray hostile[] = {
      "{}",
      "{'view':7,'modifiers':'none'}",
      "{'view':'HStack','children':{'a':1},'spacing':-1e300}",
      "{'view':'VStack','children':[1,null,[],'x',{'view':'Text'}],'spacing':1e300}",
      "{'view':'Text','text':{},'modifiers':[null,[],{},{'font':[]},{'font':{'size':1e300}}]}",
      "{'view':'Text','text':'x','modifiers':[{'lineLimit':-5},{'minimumScaleFactor':-1}]}",
      "{'view':'Text','text':'x','modifiers':[{'frame':{'width':-5,'height':1e300}}]}",
      "{'view':'Text','text':'x','modifiers':[{'padding':{'top':1e300}},{'opacity':'x'}]}",
      "{'view':'Text','text':'x','modifiers':[{'background':{'fill':{'red':'x'}}}]}",
      "{'view':'Text','date':1e300,'style':'timer'}",
      "{'view':'Text','date':-1e300,'style':'relative'}",
      "{'view':'Text','date':1e300,'style':'time'}",
      "{'view':'Image'}",
      "{'view':'Image','systemName':'../../../etc/passwd'}",
      "{'view':'Image','image':{'png':'iVBORw0KGgo=','width':1e300}}",
      "{'view':'Image','image':{'png':'" + fourColors(4) + "','width':0,'height':-1,'scale':0}}",
      "{'view':'Button'}",
      "{'view':'Button','label':{'view':'Text'},'intent':[]}",
      "{'view':'Link','label':{'view':'Link','label':{'view':'Text','text':'x'}}}",
      "{'view':'Label','title':{'view':'Hologram'}}",
      text("", shrinking),
      text("👩‍👩‍👧 1", shrinking),
      text("\u0301\u200f\\n\\n", shrinking),
      deep,
      wide,
  };
  for (const QByteArray& view : hostile) {
    for (const QSize& room : {QSize(1, 1), QSize(3, 500), QSize(158, 158)}) {
      EXPECT_EQ(drawn(stack("VStack", {view}), room).size(), room) << view.left(100).toStdString();
    }
  }
}

}  // namespace
}  // namespace brevant
