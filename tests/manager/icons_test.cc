// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <span>

#include "manager/widget_manager.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

// Images are told apart by their width.
ImageRef imageOfWidth(int width, double scale = 1) {
  auto image = std::make_shared<Image>();
  image->pixelWidth = width;
  image->pixelHeight = 1;
  image->scale = scale;
  image->pixels.assign(static_cast<std::size_t>(width) * 4, 255);
  return image;
}

const std::string kGuid = "1B4E28BA-2FA1-41D2-883F-0016D3CCA427";

struct Icons : testing::Test {
  void addCustom(const std::string& name, const ImageRef& image) {
    fakes.images.byPath["/container/custom_images/" + name] = image;
  }

  FakePlatform fakes;
  const WidgetManager manager{fakes.platform(), std::nullopt};
};

TEST_F(Icons, ComeFromTheExtensionOrTheUsersFolderByTheLengthOfTheirName) {
  const std::string letters15 = "éabcdefghijklmn";  // and 16 bytes
  const std::string icons8 = "⌚⏰🕐🕑🕒🕓🕔🕕";            // 14 code units of UTF-16
  fakes.bundle.images = {{"cat_1.png", imageOfWidth(1)},
                         {"cat_7.png", imageOfWidth(7)},
                         {letters15 + "o.png", imageOfWidth(20)},
                         {icons8 + "ab.png", imageOfWidth(21)},
                         {letters15 + "op.png", imageOfWidth(99)}};
  addCustom(kGuid + ".png", imageOfWidth(36));
  addCustom(letters15 + "op.png", imageOfWidth(37));
  addCustom(icons8 + "abc.png", imageOfWidth(38));
  addCustom("cat_8.png", imageOfWidth(99));
  const std::pair<std::optional<std::string>, int> cases[] = {
      {std::nullopt, 1},
      {"", 1},
      {"cat_7", 7},
      {"cat_7.png", 7},
      {"cat_8", 1},            // not shipped: the default
      {"cat_7.PNG", 1},        // cat_7.PNG.png
      {letters15 + "o", 20},   // 20 characters with ".png"
      {letters15 + "op", 37},  // 21
      {icons8 + "ab", 21},     // 20
      {icons8 + "abc", 38},    // 21
      {kGuid, 36},
      {kGuid + ".png", 36},
      {"0" + kGuid, 0},  // no such file: no icon
  };
  for (const auto& [guid, width] : cases) {
    SCOPED_TRACE(guid.value_or("absent"));
    const ImageRef icon = manager.imageForGuid(guid, 0x00FF00);
    EXPECT_EQ(icon ? icon->pixelWidth : 0, width);
    if (width == 0) continue;
    const std::span first(icon->pixels.data(), 4);
    EXPECT_THAT(first, testing::ElementsAre(0, 255, 0, 255));
  }
  fakes.bundle.images.clear();
  EXPECT_EQ(manager.imageForGuid("cat_7", 0), nullptr);
}

TEST_F(Icons, WithNamesThatAreNoneOfAFileAreRefusedWithALogLine) {
  const std::string name = kGuid + ".png";
  addCustom("../" + name, imageOfWidth(1));
  addCustom("sub/" + name, imageOfWidth(1));
  addCustom(name, imageOfWidth(1));
  for (const std::string& refused : {"../" + name, "sub/" + name, kGuid + std::string("\0", 1)}) {
    EXPECT_EQ(manager.imageForGuid(refused, 0), nullptr);
    EXPECT_EQ(fakes.log.lines.size(), 1U);
    fakes.log.lines.clear();
  }
}

TEST_F(Icons, KeepTheScaleOfTheExtensionsAndHaveScaleOneInTheUsersFolder) {
  fakes.bundle.images["cat_7.png"] = imageOfWidth(66, 3);
  addCustom(kGuid + "@2x.png", imageOfWidth(64, 2));
  EXPECT_EQ(manager.imageForGuid("cat_7", 0)->scale, 3);
  EXPECT_EQ(manager.imageForGuid(kGuid + "@2x", 0)->scale, 1);
}

TEST_F(Icons, AreTakenFromTheCacheByNameAndSignedColour) {
  const std::tuple<const char*, std::uint64_t, const char*> cases[] = {
      {"", 0xFF0000, "cat_1%2Epng-16711680"},
      {"cat_7", 0xFFFFFFFF, "cat_7%2Epng--1"},
      {"a/b", 0x100000001, "a%2Fb%2Epng-1"}};
  for (const auto& [imageGuid, color, file] : cases) {
    fakes.files.files[std::string("/caches/org.brevant.PINDiskCache.PINDiskCacheShared/") + file] =
        file;
    const ImageRef cached = fakes.images.byContents[file] = imageOfWidth(1);
    WidgetType type;
    type.imageGuid = imageGuid;
    type.color = color;
    EXPECT_EQ(manager.imageForType(type), cached) << file;
  }
}

TEST_F(Icons, TheUsersFolderIsSpelledAsTheContainersUrl) {
  fakes.files.container = "/a b/file:c";
  EXPECT_EQ(manager.customImagesPath(), "///a%20b/c/custom_images");
  EXPECT_EQ(manager.pathForCustomImageGuid("x y.png"), "///a%20b/c/custom_images/x y.png");
  fakes.files.container.reset();
  EXPECT_EQ(manager.pathForCustomImageGuid("x.png"), std::nullopt);
  EXPECT_EQ(manager.imageForGuid(kGuid, 0), nullptr);
}

}  // namespace
}  // namespace brevant::test
