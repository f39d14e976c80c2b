// SPDX-License-Identifier: MIT
#include "platform/linux/image_codec.h"

#include <gtest/gtest.h>
#include <numeric>

#include "platform/linux/property_list.h"
#include "platform/picture_limits.h"
#include "tests/support/big_endian.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_data.h"

namespace brevant {
namespace {

using test::bigEndian;
using test::testData;
using Bytes = std::vector<std::uint8_t>;

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Opaque red and half-transparent blue.
const Image kSample{2, 1, 1, {255, 0, 0, 255, 0, 0, 128, 128}, ""};

std::string samplePng() {
  const auto png = makeImageCodec()->encodePng(kSample);
  return png ? std::string(png->begin(), png->end()) : "";
}

TEST(ImageCodecTest, KeepsEveryPremultipliedPixel) {
  Image image{256, 256, 2, {}, ""};
  for (unsigned alpha = 0; alpha < 256; ++alpha) {
    for (unsigned x = 0; x < 256; ++x) {
      const auto color = static_cast<std::uint8_t>(std::min(x, alpha));
      image.pixels.insert(image.pixels.end(), {color, static_cast<std::uint8_t>(alpha - color), 0,
                                               static_cast<std::uint8_t>(alpha)});
    }
  }
  const auto codec = makeImageCodec();
  const auto png = codec->encodePng(image);
  ASSERT_TRUE(png);
  const ImageRef decoded = codec->decodePng(*png, 2);
  ASSERT_TRUE(decoded);
  EXPECT_TRUE(*decoded == image);
  EXPECT_EQ(decoded->width(), 128);
}

TEST(ImageCodecTest, RefusesWhatIsNoPictureOrTooLarge) {
  const auto codec = makeImageCodec();
  const std::string png = samplePng();
  for (std::size_t size = 0; size + 12 < png.size(); ++size) {  // the end mark may be missing
    EXPECT_EQ(codec->decodePng(bytesOf(png).first(size), 1), nullptr) << size;
  }
  EXPECT_EQ(codec->decodePng(bytesOf(testData("huge.png")), 1), nullptr);
  EXPECT_FALSE(codec->encodePng(Image{}));
  EXPECT_FALSE(codec->encodePng(Image{3, 1, 1, kSample.pixels, ""}));
  EXPECT_FALSE(codec->encodePng(Image{-2, -1, 1, kSample.pixels, ""}));
}

TEST(ImageCodecTest, ASilhouetteIsTheExactCoverage) {
  const test::TemporaryFolder folder;
  const auto codec = makeImageCodec();
  const auto coverageOf = [&](const std::string& png) {
    const ImageRef image = codec->silhouetteWithContentsOfFile(folder.write("a@2x.png", png));
    return image && image->silhouette ? *image->silhouette->coverage : Bytes();
  };
  Bytes every(256);
  std::iota(every.begin(), every.end(), std::uint8_t{0});
  EXPECT_EQ(coverageOf(testData("interlaced_16_bit.png")), every);
  EXPECT_EQ(coverageOf(samplePng()), (Bytes{255, 128}));
  const ImageRef black = codec->silhouetteWithContentsOfFile(folder.path / "a@2x.png");
  const auto png = codec->encodePng(*black);
  ASSERT_TRUE(png);
  EXPECT_EQ(*codec->decodePng(*png, black->scale),
            (Image{2, 1, 2, {0, 0, 0, 255, 0, 0, 0, 128}, ""}));
  EXPECT_EQ(coverageOf(samplePng().substr(0, 60)), Bytes());
}

TEST(ImageCodecTest, TakesTheScaleFromTheFileName) {
  const test::TemporaryFolder folder;
  const auto codec = makeImageCodec();
  for (const auto& [name, scale] : {std::pair("a.png", 1), {"a@2x.png", 2}, {"a@3x.png", 3}}) {
    const ImageRef image = codec->imageWithContentsOfFile(folder.write(name, samplePng()));
    ASSERT_TRUE(image) << name;
    EXPECT_EQ(image->scale, scale);
  }
  EXPECT_EQ(codec->imageWithContentsOfFile(folder.path / "b.png"), nullptr);
}

std::string xmlArchive(const std::string& objects) {
  return "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string>"
         "<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict>"
         "</dict><key>$objects</key><array><string>$null</string>" +
         objects + "</array></dict></plist>";
}

const std::string kData =
    "<data>iVBORw0KGgoAAAANSUhEUgAAAAIAAAABCAYAAAD0In+KAAAADklEQVR42mP4z8AAQg0AD3oDfmqBMeEAAAAASUVO"
    "RK5CYII=</data>";

std::string binaryArchive(const std::string& data) {
  const std::string objects[] = {"\xD3\1\2\3\4\5\6",
                                 "\x59$archiver",
                                 "\x54$top",
                                 "\x58$objects",
                                 "\x5F\x10\x0FNSKeyedArchiver",
                                 "\xD1\7\x8",
                                 "\xA2\x9\xA",
                                 "\x54root",
                                 "\x80\1",
                                 "\x55$null",
                                 "\x4F\x12" + bigEndian(data.size(), 4) + data};
  std::string result = "bplist00", offsets;
  for (const std::string& object : objects) {
    offsets += bigEndian(result.size(), 4);
    result += object;
  }
  const std::string trailer = bigEndian(0x401, 8) + bigEndian(std::size(objects), 8) +
                              bigEndian(0, 8) + bigEndian(result.size(), 8);
  return result + offsets + trailer;
}

// So many fields that refer to one object.
std::string fields(int count, const std::string& object) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    result += "<key>" + object + "-" + std::to_string(i) +
              "</key><dict><key>CF$UID</key><integer>" + object + "</integer></dict>";
  }
  return result;
}

TEST(ImageCodecTest, FindsTheImageInAnArchive) {
  for (const std::string& archive :
       {testData("archive_data.plist"), testData("archive_object.plist"), xmlArchive(kData),
        xmlArchive("<dict><key>a</key><string/><key>b</key>" + kData + "</dict>"),
        xmlArchive("<dict>" + fields(1000, "2") + fields(1, "3") +
                   "</dict><data>iVBORw0KGgo=</data>" + kData),
        binaryArchive(samplePng() + std::string(kMaxArchiveSize - 1000, '\0'))}) {
    const auto image = makeImageCodec()->unarchiveImage(bytesOf(archive));
    ASSERT_TRUE(image && *image) << archive.substr(0, 1000);
    EXPECT_EQ(**image, kSample);
  }
}

TEST(ImageCodecTest, TellsNoArchiveFromOneWithoutAnImage) {
  const std::string reference = "<dict><key>CF$UID</key><integer>1</integer></dict>";
  const std::string outside =
      "<dict><key>CF$UID</key><integer>18446744073709551615</integer></dict>";
  const std::string whole = testData("archive_object.plist");
  std::vector<std::string> archives = {
      "",
      "no archive",
      samplePng(),
      testData("settings_binary.plist"),
      testData("doubling.plist"),
      testData("circular.plist"),
  };
  for (std::size_t size = 0; size < whole.size(); ++size) archives.push_back(whole.substr(0, size));
  for (const std::string& archive : archives) {
    EXPECT_EQ(makeImageCodec()->unarchiveImage(bytesOf(archive)), std::nullopt) << archive.size();
  }
  const std::string imageless[] = {
      xmlArchive(""),
      xmlArchive("<string>text</string>"),
      xmlArchive("<data>AAAA</data>"),
      xmlArchive(reference),
      xmlArchive(outside),
      xmlArchive("<dict><key>a</key>" + outside + "</dict>"),
      xmlArchive("<dict><key>NS.data</key>" + reference + "</dict>"),
      xmlArchive(kData + std::string(kMaxPropertyListSize, ' ')),
      binaryArchive(samplePng() + std::string(kMaxArchiveSize, '\0')),
  };
  for (const std::string& archive : imageless) {
    EXPECT_EQ(makeImageCodec()->unarchiveImage(bytesOf(archive)), ImageRef()) << archive.size();
  }
}

}  // namespace
}  // namespace brevant
