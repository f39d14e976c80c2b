// SPDX-License-Identifier: MIT
#include "platform/linux/property_list.h"

#include <gmock/gmock.h>

#include "tests/support/test_data.h"

namespace brevant {
namespace {

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

TEST(PropertyListTest, KeepsValuesForStrictReaders) {
  const std::pair<const char*, const char*> cases[] = {
      {"<date>0000-12-30T00:00:00Z</date>", "<date>0000-12-30T00:00:00Z</date>"},
      {"<date>0999-01-02T03:04:05Z</date>", "<date>0999-01-02T03:04:05Z</date>"},
      {"<date>1-01-01T00:00:00Z</date>", "<date>0001-01-01T00:00:00Z</date>"},
      {"<date>2023-11-05T01:02:03Z</date>", "<date>2023-11-05T01:02:03Z</date>"},
      {"<string>a&#13;b&#xD;&#10;c\r\nd\re</string>", "<string>a&#13;b&#13;\nc\nd\ne</string>"},
      {"<real>nan</real>", "<real>nan</real>"},
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
        xml("<date>12345-12-30T00:00:00Z</date>"), xml("<date>-0001-12-30T00:00:00Z</date>")}) {
    EXPECT_TRUE(parsePropertyList(contents));
    EXPECT_FALSE(mergedPropertyList(contents, kChange)) << contents;
  }
}

}  // namespace
}  // namespace brevant
