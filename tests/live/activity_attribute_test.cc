// SPDX-License-Identifier: MIT
#include "live/activity_attribute.h"

#include <gmock/gmock.h>

#include "platform/linux/json_coder.h"

namespace brevant {
namespace {

using ::testing::HasSubstr;

const ContentState kState{
    "G-1",  "Lesen \xF0\x9F\x93\x96", "cat_7", 0xFFFF'FFFF'FFFF'FFFF, ReferenceDate(Seconds(0.25)),
    "hello"};
constexpr const char* kCoded =
    R"({"guid":"G-1","typeName":"Lesen 📖","icon":"cat_7","color":18446744073709551615,)"
    R"("start":0.25,"message":"hello"})";

class Coding : public ::testing::Test {
 protected:
  // Empty where the text decodes.
  std::string errorOf(const std::string& coded) const {
    const auto decoded = ContentState::decoded(*coder, coded);
    const auto* error = std::get_if<DecodingError>(&decoded);
    return error ? error->message : "";
  }

  const std::unique_ptr<Coder> coder = makeJsonCoder();
};

TEST_F(Coding, IsTheContractWithTheMainApplication) {
  EXPECT_EQ(kState.encoded(*coder), kCoded);
  EXPECT_EQ(std::get<ContentState>(ContentState::decoded(*coder, kCoded)), kState);
  EXPECT_EQ(ContentState::codingKey("typeName"), ContentState::CodingKey::kTypeName);
  EXPECT_EQ(ContentState::codingKey("typename"), std::nullopt);
  EXPECT_EQ(errorOf(R"({"message":"","start":-1,"color":0,"icon":"","typeName":"","guid":"",)"
                    R"("more":[]})"),
            "");
  // Counted from 1970 these would be others.
  for (const char* start : {"721692800.123", "0.1", "-0.1", "1e-300"}) {
    const std::string coded = R"({"guid":"","typeName":"","icon":"","color":0,"start":)" +
                              std::string(start) + R"(,"message":""})";
    EXPECT_EQ(std::get<ContentState>(ContentState::decoded(*coder, coded)).encoded(*coder), coded);
  }
}

TEST_F(Coding, FailsWithTheFirstKeyThatIsMissingOrOfAnotherType) {
  const std::pair<std::string, std::string> cases[] = {
      {R"({"Guid":"","typeName":"","icon":"","color":0,"start":0,"message":""})", "guid"},
      {R"({"guid":"","typename":"","icon":1,"color":-1})", "typeName"},
      {R"({"guid":"","typeName":"","icon":1,"color":-1})", "icon"},
      {R"({"guid":"","typeName":"","icon":"","color":-1,"start":0,"message":""})", "color"},
      {R"({"guid":"","typeName":"","icon":"","color":0,"start":"0"})", "start"},
      {R"({"guid":"","typeName":"","icon":"","color":0,"start":0})", "message"},
  };
  for (const auto& [coded, key] : cases) {
    EXPECT_THAT(errorOf(coded), HasSubstr(key)) << coded;
  }
  for (const char* coded : {"", "[]"}) EXPECT_NE(errorOf(coded), "") << coded;
}

TEST_F(Coding, OfTheAttributesIsEmptyAndNeverFails) {
  EXPECT_EQ(ActivityAttribute().encoded(*coder), "{}");
  EXPECT_EQ(ActivityAttribute::decoded("[1]"), ActivityAttribute());
}

TEST(ContentStateEquality, ComparesEveryField) {
  const std::hash<ContentState> hash;
  EXPECT_EQ(hash(kState), hash(ContentState(kState)));
  std::vector<ContentState> changed(6, kState);
  changed[0].guid += "x";
  changed[1].typeName += "x";
  changed[2].icon += "x";
  changed[3].color -= 1;
  changed[4].start += Seconds(0.5);
  changed[5].message = "pause";
  for (const ContentState& other : changed) {
    EXPECT_FALSE(other == kState);
    EXPECT_NE(hash(other), hash(kState));
  }
}

}  // namespace
}  // namespace brevant
