// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/linux/case_mapping.h"
#include "platform/linux/log.h"
#include "platform/linux/process_info.h"
#include "platform/linux/random_source.h"
#include "platform/property_value.h"
#include "platform/uuid.h"
#include "tests/support/fake_platform.h"

namespace brevant {
namespace {

TEST(CaseMappingTest, MapsAllOfUnicodeInNoLanguage) {
  const std::pair<const char*, const char*> cases[] = {
      {"Sleep ABC", "sleep abc"},
      {"ÄÖÜ ẞ ÉÑ Ж", "äöü ß éñ ж"},
      {"ΣΑΣ", "σας"},  // a sigma at the end has a form of its own
      {"İI", "i̇i"},    // not the Turkish rule
      {"A\xFFZ", "a\xEF\xBF\xBDz"},
      {"\xED\xA0\x80", "\xEF\xBF\xBD"},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(makeCaseMapping()->lowercased(text), expected);
  }
}

TEST(StderrLogTest, WritesOneLineWhateverTheTextHolds) {
  testing::internal::CaptureStderr();
  makeStderrLog()->write("a\nb\x1B[2J\x7F\tü");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a\\nb\\x1B[2J\\x7F\tü\n");
}

TEST(ProcessInfoTest, ComparesVersionsAsNumbers) {
  const std::pair<const char*, SystemVersion> cases[] = {
      {"16.1", {16, 1}}, {"16.10.2", {16, 10}}, {"9", {9, 0}}, {"x", {0, 0}}, {"16.x", {16, 0}}};
  for (const auto& [text, version] : cases) {
    const auto process = makeProcessInfo(text, false);
    EXPECT_EQ(process->systemVersion(), version) << text;
    EXPECT_EQ(process->systemVersionString(), text);
  }
}

TEST(UuidTest, IsRandomAndInCanonicalForm) {
  test::FakeRandom fake;
  fake.next = 0xFEDCBA9876543210;
  EXPECT_EQ(newUuid(fake), "00000000-0000-4000-BEDC-BA9876543210");
  const auto random = makeRandomSource();
  EXPECT_NE(newUuid(*random), newUuid(*random));
}

TEST(PropertyValueTest, ConvertsAsTheSettingsStoreDoes) {
  const struct {
    PropertyValue value;
    std::int64_t integer;
    bool boolean;
  } cases[] = {
      {{true}, 1, true},
      {{std::int64_t{-7}}, -7, true},
      {{UINT64_MAX}, INT64_MAX, true},
      {{0.9}, 0, true},
      {{-2.9}, -2, true},
      {{1e300}, INT64_MAX, true},
      {{-1e300}, INT64_MIN, true},
      {{std::string(" 12abc")}, 12, true},
      {{std::string("+1.9")}, 1, true},
      {{std::string("-.5e1")}, -5, true},
      {{std::string("0.5")}, 0, true},
      {{std::string(" YES")}, 1, true},
      {{std::string("true")}, 1, true},
      {{std::string("nancy")}, 0, false},
      {{std::string("-infinity")}, 0, false},
      {{std::string("+-5")}, 0, false},
      {{std::string(".")}, 0, false},
      {{std::string("no")}, 0, false},
      {{std::string("0")}, 0, false},
      {{std::string("")}, 0, false},
      {{PropertyArray{{true}}}, 0, false},
      {{Date(Seconds(5))}, 0, false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(each.value.toInteger(), each.integer) << each.value.value.index();
    EXPECT_EQ(each.value.toBool(), each.boolean) << each.value.value.index();
  }
}

}  // namespace
}  // namespace brevant
