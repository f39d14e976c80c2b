// SPDX-License-Identifier: MIT
#include "manager/tint.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <span>

namespace brevant {
namespace {

// A strip of pixels with every coverage from 0 to 255 and, where a mask has none, any colour.
std::shared_ptr<Image> everyCoverage(std::size_t pixels = 256) {
  auto image = std::make_shared<Image>();
  image->pixelWidth = static_cast<int>(pixels);
  image->pixelHeight = 1;
  image->scale = 2;
  image->name = "strip";
  for (std::size_t i = 0; i < pixels; ++i) {
    const auto alpha = static_cast<std::uint8_t>(i);
    image->pixels.insert(image->pixels.end(), {alpha, 0, static_cast<std::uint8_t>(i / 2), alpha});
  }
  return image;
}

TEST(ColorFromInt, UnpacksInSinglePrecisionAndLeavesRedUnmasked) {
  const Color color = colorFromInt(0x336699);
  EXPECT_EQ(color, Color::rgb(double{0.2F}, double{0.4F}, double{0.6F}, 1));
  EXPECT_EQ(colorFromInt(0x1FF0000).components[0], double{511 / 255.0F});
}

TEST(Tint, IsTheCoverageInOneSolidColour) {
  const auto source = everyCoverage();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::tuple<Color, double, double, double> cases[] = {
      {Color::rgb(0.2, 0.4, 0.6, 1), 0.2, 0.4, 0.6},
      {Color::rgb(1, 0, 0.999, 0.1), 1, 0, 0.999},  // its own alpha is ignored
      {Color::gray(0.5, 0), 0.5, 0.5, 0.5},
      {Color::rgb(2.004, -1, nan, 1), 1, 0, 0},  // beyond the range
      {Color{}, 0, 0, 0},
  };
  for (const auto& [color, red, green, blue] : cases) {
    SCOPED_TRACE(testing::PrintToString(color.components));
    const ImageRef result = extensionImageWithColor(source, color);
    ASSERT_EQ(result->pixels.size(), source->pixels.size());
    for (std::size_t a = 0; a < 256; ++a) {
      const auto level = [a](double component) {
        return std::lround(static_cast<double>(a) * double{static_cast<float>(component)});
      };
      ASSERT_THAT(std::span(result->pixels).subspan(4 * a, 4),
                  testing::ElementsAre(level(red), level(green), level(blue), a));
    }
  }
}

TEST(Tint, KeepsSizeAndScaleOfImagesOfAnyLength) {
  for (const std::size_t pixels : {0U, 1U, 1023U, 1024U, 5001U}) {
    const auto source = everyCoverage(pixels);
    const ImageRef result = extensionImageWithIntColor(source, 0xFFFFFF);
    source->name = "";
    for (std::size_t i = 0; i < 4 * pixels; ++i) {
      source->pixels[i] = static_cast<std::uint8_t>(i / 4);
    }
    EXPECT_EQ(*result, *source);
  }
}

TEST(Tint, OfASilhouetteSharesTheCoverage) {
  const auto whole = everyCoverage();
  Silhouette::Coverage coverage;
  for (std::size_t i = 3; i < whole->pixels.size(); i += 4) coverage.push_back(whole->pixels[i]);
  Image mask{256, 1, 3, {}, ""};
  mask.silhouette = {std::make_shared<const Silhouette::Coverage>(coverage), {}};
  const ImageRef result = extensionImageWithIntColor(std::make_shared<const Image>(mask), 0x336699);
  EXPECT_EQ(result->silhouette->coverage, mask.silhouette->coverage);
  EXPECT_EQ(result->scale, 3);
  const ImageRef expected = extensionImageWithIntColor(whole, 0x336699);
  for (std::size_t a = 0; a < 256; ++a) {
    EXPECT_THAT(result->silhouette->palette[a],
                testing::ElementsAreArray(std::span(expected->pixels).subspan(4 * a, 4)));
  }
}

TEST(Tint, WithoutColourOrImageThereIsNothingToDo) {
  const ImageRef source = everyCoverage();
  EXPECT_EQ(extensionImageWithColor(source, std::nullopt), source);
  EXPECT_EQ(extensionImageWithIntColor(nullptr, 0xFF0000), nullptr);
}

}  // namespace
}  // namespace brevant
