// SPDX-License-Identifier: MIT
#include "platform/linux/json_coder.h"

#include <cmath>
#include <gmock/gmock.h>

namespace brevant {
namespace {

using testing::HasSubstr;

// What decoding `{"key":VALUE}` as each of the types gives, errors as their message.
template <typename T>
std::string shown(const Decoded<T>& decoded) {
  if (const auto* error = std::get_if<DecodingError>(&decoded)) return error->message;
  if constexpr (std::is_same_v<T, std::string>)
    return std::get<T>(decoded);
  else if constexpr (std::is_same_v<T, ReferenceDate>)
    return std::to_string(secondsSince2001(std::get<T>(decoded)));
  else
    return std::to_string(std::get<T>(decoded));
}

struct Meanings {
  std::string text, number, date;
};

Meanings meanings(const Coder& coder, const std::string& json) {
  Meanings result;
  const auto error = coder.decode(json, [&](const KeyedDecoder& decoder) {
    result = {shown(decoder.text("key")), shown(decoder.unsignedInteger("key")),
              shown(decoder.date("key"))};
  });
  if (error) result.text = result.number = result.date = error->message;
  return result;
}

TEST(JsonCoderTest, DecodesWhatItEncoded) {
  const auto coder = makeJsonCoder();
  const ReferenceDate date(Seconds(721692800.123));
  const auto coded = coder->encode([&](KeyedEncoder& encoder) {
    encoder.encode("text", "ü \"☃\" \\");
    encoder.encode("number", UINT64_MAX);
    encoder.encode("date", date);
  });
  ASSERT_TRUE(coded);
  bool wasRead = false;
  EXPECT_FALSE(coder->decode(*coded, [&](const KeyedDecoder& decoder) {
    wasRead = true;
    EXPECT_EQ(std::get<std::string>(decoder.text("text")), "ü \"☃\" \\");
    EXPECT_EQ(std::get<std::uint64_t>(decoder.unsignedInteger("number")), UINT64_MAX);
    EXPECT_EQ(std::get<ReferenceDate>(decoder.date("date")), date);
    EXPECT_THAT(shown(decoder.text("number")), HasSubstr("number"));
    EXPECT_THAT(shown(decoder.date("Date")), HasSubstr("Date"));
  }));
  EXPECT_TRUE(wasRead);
}

// The order of the keys and the form of dates are pinned where a content state is coded.
TEST(JsonCoderTest, EncodesNothingThatIsNoTextOrNoNumber) {
  const auto coder = makeJsonCoder();
  EXPECT_FALSE(coder->encode([](KeyedEncoder& e) { e.encode("key", "\xFF"); }));
  EXPECT_FALSE(
      coder->encode([](KeyedEncoder& e) { e.encode("key", ReferenceDate(Seconds(HUGE_VAL))); }));
}

TEST(JsonCoderTest, TakesTypesExactly) {
  const std::string noText = "\"key\" is not a text", noDate = "\"key\" is not a number of seconds";
  const std::string noNumber = "\"key\" is not a whole number from 0 to 18446744073709551615";
  const struct {
    const char* value;
    std::string text, number, date;
  } cases[] = {
      {"\"1\"", "1", noNumber, noDate},
      {"1", noText, "1", "1.000000"},
      {"-1", noText, noNumber, "-1.000000"},
      {"-0", noText, "0", "0.000000"},
      {"-0.00e9", noText, "0", "-0.000000"},
      {"1.0", noText, "1", "1.000000"},
      {"1e2", noText, "100", "100.000000"},
      {"120e-1", noText, "12", "12.000000"},
      {"12e-1", noText, noNumber, "1.200000"},
      {"1E-99999999999999999999", noText, noNumber, "0.000000"},
      {"9007199254740993.0", noText, "9007199254740993", "9007199254740992.000000"},
      {"1.8446744073709551615e+19", noText, "18446744073709551615", "18446744073709551616.000000"},
      {"1e300", noText, noNumber, shown(Decoded<ReferenceDate>(ReferenceDate(Seconds(1e300))))},
      {"18446744073709551615", noText, "18446744073709551615", "18446744073709551616.000000"},
      {"18446744073709551616", noText, noNumber, "18446744073709551616.000000"},
      {"true", noText, noNumber, noDate},
      {"null", noText, noNumber, noDate},
      {"[1]", noText, noNumber, noDate},
  };
  for (const auto& each : cases) {
    const Meanings found = meanings(
        *makeJsonCoder(), std::string("{\"other\":{\"key\":9},\"key\":") + each.value + "}");
    EXPECT_EQ(found.text, each.text) << each.value;
    EXPECT_EQ(found.number, each.number) << each.value;
    EXPECT_EQ(found.date, each.date) << each.value;
  }
  EXPECT_EQ(meanings(*makeJsonCoder(), R"({"Key":1})").text, "\"key\" is missing");
}

TEST(JsonCoderTest, RefusesWhatIsNoKeyedContainer) {
  const std::string deep(100'000, '[');
  const std::string within(63, '['), beyond(64, '[');
  const auto holding = [](const std::string& open) {
    return "{\"key\":" + open + std::string(open.size(), ']') + "}";
  };
  EXPECT_EQ(meanings(*makeJsonCoder(), holding(within)).text, "\"key\" is not a text");
  EXPECT_THAT(meanings(*makeJsonCoder(), holding(beyond)).text, HasSubstr("more than 64 levels"));
  EXPECT_EQ(meanings(*makeJsonCoder(), R"({"key":"[[\"[[\\"})").text, "[[\"[[\\");
  for (const std::string& coded : std::vector<std::string>{
           "", "{", "[\"key\"]", "\"key\"", deep, deep + std::string(100'000, ']'),
           "{\"key\":\"\xFF\"}", "{\"key\":1e999}", "{\"key\":NaN}", "{\"key\":1,\"key\":1}",
           "{\"key\":1} {}", "{\"key\":1,}", std::string("{\"key\":1}\0 {}", 13)}) {
    bool wasRead = false;
    EXPECT_TRUE(makeJsonCoder()->decode(coded, [&](const auto&) { wasRead = true; }));
    EXPECT_FALSE(wasRead) << coded.substr(0, 40);
  }
}

}  // namespace
}  // namespace brevant
