// SPDX-License-Identifier: MIT
// The real program on files that were made to do harm: it says in one line what is wrong, takes
// little memory and leaves the file as it was.
#include <functional>
#include <gmock/gmock.h>

#include "platform/linux/image_codec.h"
#include "tests/support/big_endian.h"
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

constexpr const char* kGuid = "ABCDEFAB-0000-4000-8000-ABCDEFABCDEF";
constexpr const char* kRegistry = "LiveActivities/activities.json";
constexpr const char* kReminders = "Notifications/requests.json";
constexpr const char* kSettings = "Library/Preferences/group.brevant.plist";
constexpr const char* kRecord = "Cloud/iCloud.brevant/private/WidgetUpdate/A.json";
constexpr const char* kCached =
    "home/.cache/org.brevant.PINDiskCache.PINDiskCacheShared/cat_7%2Epng-255";
constexpr const char* kPicture = "custom_images/ABCDEFAB-0000-4000-8000-ABCDEFABCDEF.png";

std::string deep() {
  return std::string(100'000, '[') + std::string(100'000, ']');
}

std::string large() {
  return std::string(std::size_t{4} << 20U, '[');
}

// One array of as many references to itself as there is room for.
std::string selfReferring() {
  constexpr std::size_t kCount = 261'000;
  const std::string bytes = "bplist00" + std::string("\xD1\1\2\x51k\xAF\x12", 7) +
                            bigEndian(kCount, 4) + std::string(kCount, '\2');
  const std::string offsets = bigEndian(8, 4) + bigEndian(11, 4) + bigEndian(13, 4);
  return bytes + offsets + bigEndian(0x401, 8) + bigEndian(3, 8) + bigEndian(0, 8) +
         bigEndian(bytes.size(), 8);
}

// An archive whose fields all refer to the same data.
std::string sharing() {
  std::string archive =
      "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string>"
      "<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict>"
      "</dict><key>$objects</key><array><string>$null</string><dict>";
  for (int i = 0; i < 2000; ++i) {
    archive +=
        "<key>" + std::to_string(i) + "</key><dict><key>CF$UID</key><integer>2</integer></dict>";
  }
  return archive + "</dict><data>" + std::string(100'000, 'A') + "</data></array></dict></plist>";
}

// Four by four pixels, and a text that claims a gigabyte.
std::string claiming() {
  return "\x89PNG\r\n\x1A\n" + bigEndian(13, 4) + "IHDR" + bigEndian(4, 4) + bigEndian(4, 4) +
         std::string("\10\6\0\0\0\xA9\xF1\x9E\x7E", 9) + bigEndian(std::size_t{1} << 30U, 4) +
         "tEXta" + std::string(7, '\0');
}

std::string sixteenMegapixels() {
  constexpr int kSide = 4000;
  Image image{kSide, kSide, 1, {}, ""};
  Silhouette::Coverage coverage(std::size_t{kSide} * kSide);
  for (std::size_t i = 0; i < coverage.size(); ++i) coverage[i] = static_cast<std::uint8_t>(i / 99);
  image.silhouette = {std::make_shared<const Silhouette::Coverage>(std::move(coverage)), {}};
  for (std::size_t i = 0; i < 256; ++i) {
    image.silhouette->palette[i][3] = static_cast<std::uint8_t>(i);
  }
  const auto png = makeImageCodec()->encodePng(image);
  return {png->begin(), png->end()};
}

std::string integerBeyond64Bits() {
  return "<plist version=\"1.0\"><dict><key>k</key><integer>18446744073709551616</integer></dict>"
         "</plist>";
}

struct Hostile {
  const char* name;
  const char* file;  // that it lies in; null: it comes from stdin
  std::function<std::string()> contents;
  std::vector<std::vector<std::string>> commands;
  int exitCode;
  const char* told;  // in the one line; empty: nothing is
};

const std::vector<std::string> kIcon{"icon", "cat_7", "--color", "255", "-o", "/dev/null"};
const std::vector<std::string> kOwnIcon{"icon", kGuid, "--color", "255", "-o", "/dev/null"};
const std::vector<std::vector<std::string>> kPictures{
    kOwnIcon, {"timeline", "--json"}, {"live", "show", "--json"}};
const std::vector<std::vector<std::string>> kCoded{{"live", "decode"}, {"live", "start"}};

const Hostile kInputs[] = {
    {"large icon", kPicture, sixteenMegapixels, kPictures, 0, ""},
    {"deep registry", kRegistry, deep, {{"live", "end", "X"}}, 1, "more than 64 levels"},
    {"large registry", kRegistry, large, {{"live", "end", "X"}}, 1, "larger than 1024 KiB"},
    {"deep reminders", kReminders, deep, {{"reminders", "cancel"}}, 1, "more than 64 levels"},
    {"large reminders", kReminders, large, {{"reminders", "cancel"}}, 1, "larger than 1024 KiB"},
    {"deep record", kRecord, deep, {{"cloud"}, {"cloud", "--json"}}, 0, "more than 64 levels"},
    {"large record", kRecord, large, {{"cloud"}}, 0, "larger than 1024 KiB"},
    {"deep content", nullptr, deep, kCoded, 1, "more than 64 levels"},
    {"content with a NUL", nullptr, [] { return std::string("{}\0{", 4); }, kCoded, 1, "NUL"},
    {"endless content", nullptr, large, kCoded, 1, "larger than 1 MiB"},
    {"list of itself", kSettings, selfReferring, {{"activities"}, {"status"}}, 0, ""},
    {"shared data", kCached, sharing, {kIcon}, 0, ""},
    {"claiming chunk", kPicture, claiming, {kOwnIcon}, 1, "no icon"},
};

using HostileInput = Cli;

TEST_F(HostileInput, IsToldInOneLineAndLeftAsItWas) {
  addCategory("C", "Code");
  addActivity("A", "C", 1, "1699990000");
  database.run(std::string("UPDATE categories SET image_guid = '") + kGuid + "'");
  EXPECT_EQ(run({"live", "start", "--activity", "A"}).exitCode, 0);
  for (const Hostile& each : kInputs) {
    const std::string contents = each.contents();
    if (each.file != nullptr) write(each.file, contents);
    for (const std::vector<std::string>& command : each.commands) {
      SCOPED_TRACE(std::string(each.name) + ": " + command.front());
      const Outcome outcome = run(command, each.file == nullptr ? contents : "");
      EXPECT_EQ(outcome.signal, 0);
      EXPECT_EQ(outcome.exitCode, each.exitCode) << outcome.err;
      EXPECT_THAT(outcome.err, testing::HasSubstr(each.told));
      EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), *each.told ? 1 : 0)
          << outcome.err;
#ifndef __SANITIZE_ADDRESS__
      EXPECT_LT(outcome.peakKilobytes, 64 * 1024);
#endif
    }
    if (each.file != nullptr) {
      EXPECT_TRUE(database.files.read(each.file) == contents) << each.name;
      std::filesystem::remove(path(each.file));
    }
  }
}

TEST_F(HostileInput, KeepsNoIntentFromItsChange) {
  addCategory("C", "Code");
  addActivity("A", "C", 1, "1699990000");
  write(kRegistry, deep());
  write(kReminders, deep());
  write(kSettings, integerBeyond64Bits());
  EXPECT_EQ(run({"intent", "StopActivityLiveIntent", "A", "pause"}).signal, 0);
  EXPECT_EQ(stateOf("A"), "2\n");
  EXPECT_TRUE(database.files.read(kRegistry) == deep());
  EXPECT_EQ(database.files.read(kSettings), integerBeyond64Bits());
}

}  // namespace
}  // namespace brevant::test
