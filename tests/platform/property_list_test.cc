// SPDX-License-Identifier: MIT
#include "platform/linux/property_list.h"

#include <gmock/gmock.h>

#include "tests/support/big_endian.h"
#include "tests/support/test_data.h"

namespace brevant {
namespace {

using test::bigEndian;
using testing::HasSubstr;
using testing::Not;
using testing::Optional;

const std::map<std::string, bool> kChange{{"changed", true}};

std::string xml(const std::string& value) {
  return "<plist version=\"1.0\"><dict><key>k</key>" + value + "</dict></plist>";
}

std::string binaryWith(const std::string& from, const std::string& to) {
  std::string bytes = test::testData("settings_binary.plist");
  return bytes.replace(bytes.find(from), to.size(), to);
}

// {"k": [VALUE, VALUE…]} of `count` references to one object.
std::string listOf(std::size_t count, const std::string& object) {
  std::string bytes = "bplist00" + std::string("\xD1\1\2\x51k\xAF\x12", 7) + bigEndian(count, 4) +
                      std::string(count, '\3');
  const std::size_t valueAt = bytes.size();
  bytes += object;
  const std::size_t tableAt = bytes.size();
  for (const std::size_t at : {std::size_t{8}, std::size_t{11}, std::size_t{13}, valueAt}) {
    bytes += bigEndian(at, 4);
  }
  return bytes + bigEndian(0x401, 8) + bigEndian(4, 8) + bigEndian(0, 8) + bigEndian(tableAt, 8);
}

TEST(PropertyListTest, RefusesBinaryListsThatStandForTooMuch) {
  const std::string yes = "\x09";
  EXPECT_TRUE(parsePropertyList(listOf(65'000, yes)));
  EXPECT_FALSE(parsePropertyList(listOf(65'536, yes)));
  EXPECT_FALSE(parsePropertyList(listOf(200'000, "\xA1\2")));  // each holds the whole list again
}

TEST(PropertyListTest, KeepsValuesForStrictReaders) {
  const std::pair<const char*, const char*> cases[] = {
      {"<date>0000-12-30T00:00:00Z</date>", "<date>0000-12-30T00:00:00Z</date>"},
      {"<date>0999-01-02T03:04:05Z</date>", "<date>0999-01-02T03:04:05Z</date>"},
      {"<date>1-01-01T00:00:00Z</date>", "<date>0001-01-01T00:00:00Z</date>"},
      {"<date>2023-11-05T01:02:03Z</date>", "<date>2023-11-05T01:02:03Z</date>"},
      {"<string>a&#13;b&#xD;&#10;c\r\nd\re</string>", "<string>a&#13;b&#13;\nc\nd\ne</string>"},
      {"<real>nan</real>", "<real>nan</real>"},
      {"<integer>18446744073709551615</integer>", "<integer>18446744073709551615</integer>"},
      {"<integer>-0</integer>", "<integer>0</integer>"},
      {"<integer>0xFF</integer>", "<integer>255</integer>"},
      {"<array><real>nan</real></array>", "<real>nan</real>"},
  };
  for (const auto& [before, after] : cases) {
    const auto merged = mergedPropertyList(xml(before), kChange);
    EXPECT_THAT(merged, Optional(HasSubstr(after))) << before;
    EXPECT_THAT(merged, Optional(Not(HasSubstr("\r")))) << before;
  }
  EXPECT_TRUE(mergedPropertyList(binaryWith("\x3F\xB9\x99", "\x7F\xF8\x99"), kChange));
}

TEST(PropertyListTest, ReadsButNeverWritesWhatItWouldLose) {
  for (const std::string& contents :
       {binaryWith(std::string("\0n", 2), std::string("\0\0", 2)),  // a text's second letter
        xml("<date>12345-12-30T00:00:00Z</date>"), xml("<date>-0001-12-30T00:00:00Z</date>"),
        xml("<integer>18446744073709551616</integer>"),
        xml("<integer>-9223372036854775809</integer>"), xml("<integer>010</integer>"),
        xml("<array><integer>0x10000000000000000</integer></array>"),
        listOf(1, "\x14" + std::string(7, '\0') + std::string(9, '\1'))}) {
    EXPECT_TRUE(parsePropertyList(contents));
    EXPECT_FALSE(mergedPropertyList(contents, kChange)) << contents;
  }
}

}  // namespace
}  // namespace brevant
