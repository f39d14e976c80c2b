// SPDX-License-Identifier: MIT
#include "desktop/surface.h"

#include <gtest/gtest.h>

#include "desktop/card.h"
#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A presentation whose lock screen is so many points high.
QJsonObject presentation(const QByteArray& name, int height = 100) {
  return viewTree(
      "{'lockScreen':" + text("x", "{'frame':{'height':" + QByteArray::number(height) + "}}") +
      ",'dynamicIsland':{'expanded':{'leading':" + text("0:05") + ",'trailing':" + text("x") +
      ",'bottom':" + text(name) + "},'compactLeading':" + text(name) +
      ",'compactTrailing':" + text("0:05") + ",'minimal':" + text("x") + "}}");
}

QImage card(Surface surface, const QJsonObject& answer, double scale = 1,
            ColorScheme scheme = ColorScheme::kLight, const char* locale = "en_US") {
  DrawingContext context = drawingContext(locale);
  context.colorScheme = scheme;
  return drawn(*buildSurface(surface, answer, context), {}, scale);
}

QSize sizeOf(Surface surface, const QJsonObject& answer) {
  return card(surface, answer)
      .size()
      .shrunkBy({kCardMargin, kCardMargin, kCardMargin, kCardMargin});
}

TEST(Surface, HasTheSizeOfItsPlaceOnAPhone) {
  const QJsonObject nonsense = viewTree("{'views':7,'lockScreen':[],'dynamicIsland':[]}");
  EXPECT_EQ(sizeOf(Surface::kSmall, nonsense), QSize(158, 158));
  EXPECT_EQ(sizeOf(Surface::kMedium, {}), QSize(338, 158));
  EXPECT_EQ(sizeOf(Surface::kLockScreen, nonsense), QSize(371, 84));
  EXPECT_EQ(sizeOf(Surface::kLockScreen, presentation("x", 73)), QSize(371, 100));
  EXPECT_EQ(sizeOf(Surface::kLockScreen, presentation("x", 20)), QSize(371, 84));
  EXPECT_EQ(sizeOf(Surface::kLockScreen, presentation("x", 500)), QSize(371, 160));
  EXPECT_EQ(sizeOf(Surface::kIslandMinimal, presentation("x")), QSize(36, 36));
  EXPECT_EQ(sizeOf(Surface::kIslandMinimal, nonsense), QSize(36, 36));
  EXPECT_EQ(sizeOf(Surface::kIslandExpanded, presentation("x")), QSize(371, 84));
}

TEST(Surface, TheIslandIsAsWideAsItsTexts) {
  const int bare = sizeOf(Surface::kIslandCompact, {}).width();
  const int one = sizeOf(Surface::kIslandCompact, presentation("Reading a whole book")).width();
  const int most = sizeOf(Surface::kIslandCompact, presentation(QByteArray(60, 'x'))).width();
  EXPECT_LT(bare, one);
  EXPECT_LT(one, most);
  EXPECT_EQ(most, 371);
}

TEST(Surface, FollowsTheColourSchemeExceptTheIsland) {
  const auto middle = [](Surface surface, ColorScheme scheme) {
    const QImage image = card(surface, {}, 1, scheme);
    return image.pixelColor(image.rect().center());
  };
  for (const Surface surface : {Surface::kSmall, Surface::kMedium, Surface::kLockScreen}) {
    EXPECT_GT(middle(surface, ColorScheme::kLight).lightness(), 240);
    EXPECT_LT(middle(surface, ColorScheme::kDark).lightness(), 40);
  }
  for (const Surface surface :
       {Surface::kIslandCompact, Surface::kIslandMinimal, Surface::kIslandExpanded}) {
    EXPECT_EQ(middle(surface, ColorScheme::kLight), QColor(Qt::black));
    const QImage light = card(surface, presentation("x"));
    EXPECT_EQ(light, card(surface, presentation("x"), 1, ColorScheme::kDark));
  }
}

// A picture of the user's own counts a point per pixel; the name beside it and the time below stay.
TEST(Surface, AWidgetKeepsRoomBesideAnImageOfAnySize) {
  const QByteArray image = "{'view':'Image','image':{'width':256,'height':128,'scale':1,'png':'" +
                           fourColors(16) + "'}}";
  const QJsonObject entry =
      viewTree("{'views':{'systemSmall':" +
               stack("VStack", {stack("HStack", {image, text("Reading")}), text("0:05")}) + "}}");
  const auto small = buildSurface(Surface::kSmall, entry, drawingContext());
  const QImage picture = drawn(*small);
  const QRect red = inkOf(picture, Qt::red);
  EXPECT_NEAR(red.width(), 10, 1) << "a quarter of the image";
  EXPECT_NEAR(red.height(), 5, 1) << "its shape is kept";
  EXPECT_TRUE(isShownInFull(*small, u"Reading"_s));
}

TEST(Surface, CastsASoftShadowThatEndsWithinItsMargin) {
  const double scale = 2;
  const QImage image = card(Surface::kSmall, {}, scale);
  const int middle = image.width() / 2;
  const int edge = image.height() - qRound(kCardMargin * scale);
  const auto shadow = [&](int below) { return qAlpha(image.pixel(middle, edge + below)); };
  EXPECT_GT(shadow(2), 20);
  for (int y = 2; y < 46; y += 4) EXPECT_LE(shadow(y + 1), shadow(y)) << y;
  EXPECT_LE(shadow(47), 1);
  for (int i = 0; i < image.width(); ++i) {
    EXPECT_LE(qAlpha(image.pixel(i, 0)), 1);
    EXPECT_LE(qAlpha(image.pixel(0, i)), 1);
    EXPECT_LE(qAlpha(image.pixel(image.width() - 1, i)), 1);
  }
  // No seams where its parts meet: neighbours are alike all around, just outside the card.
  const int ring = qRound((kCardMargin - 3) * scale);
  for (int i = 1; i < image.width(); ++i) {
    EXPECT_LE(std::abs(qAlpha(image.pixel(i, ring)) - qAlpha(image.pixel(i - 1, ring))), 6) << i;
  }
}

TEST(Surface, IsMirroredWhereTheLanguageReadsFromTheRight) {
  const QImage usual = card(Surface::kIslandCompact, presentation("HH"));
  const QImage mirrored =
      card(Surface::kIslandCompact, presentation("HH"), 1, ColorScheme::kLight, "ar_EG");
  const auto textOfLeftHalf = [](const QImage& image) {
    return inkOf(image.copy(0, 0, image.width() / 2, image.height()), Qt::white).width();
  };
  EXPECT_NEAR(textOfLeftHalf(usual.mirrored(true, false)), textOfLeftHalf(mirrored), 1);
  EXPECT_GT(std::abs(textOfLeftHalf(usual) - textOfLeftHalf(mirrored)), 5);
}

}  // namespace
}  // namespace brevant
