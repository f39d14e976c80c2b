// SPDX-License-Identifier: MIT
#include "platform/linux/json_coder.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "platform/linux/json_object.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

class JsonEncoder : public KeyedEncoder {
 public:
  void encode(std::string_view key, std::string_view text) override { put(key, text); }
  void encode(std::string_view key, std::uint64_t number) override { put(key, number); }
  void encode(std::string_view key, ReferenceDate date) override {
    const double seconds = secondsSince2001(date);
    isComplete_ = isComplete_ && std::isfinite(seconds);
    put(key, seconds);
  }

  std::optional<std::string> coded() const {
    if (!isComplete_) return std::nullopt;
    try {
      return object_.dump();
    } catch (const Json::exception&) {  // a text that is no UTF-8
      return std::nullopt;
    }
  }

 private:
  template <typename Value>
  void put(std::string_view key, const Value& value) {
    object_[std::string(key)] = value;
  }

  Json object_ = Json::object();
  bool isComplete_ = true;
};

class JsonDecoder : public KeyedDecoder {
 public:
  explicit JsonDecoder(const JsonFields& fields) : fields_(fields) {}

  Decoded<std::string> text(std::string_view key) const override {
    const auto* const text = std::get_if<std::string>(field(key));
    return text ? Decoded<std::string>(*text) : error(key, "a text");
  }

  Decoded<std::uint64_t> unsignedInteger(std::string_view key) const override {
    const auto* const number = std::get_if<JsonNumber>(field(key));
    const auto whole = number ? wholeNumber(number->spelling) : std::nullopt;
    if (whole) return *whole;
    return error(key, "a whole number from 0 to 18446744073709551615");
  }

  Decoded<ReferenceDate> date(std::string_view key) const override {
    const auto* const number = std::get_if<JsonNumber>(field(key));
    if (!number) return error(key, "a number of seconds");
    return ReferenceDate(Seconds(number->value));
  }

 private:
  // Null when it is missing.
  const JsonField* field(std::string_view key) const {
    const auto found = fields_.find(key);
    return found == fields_.end() ? nullptr : &found->second;
  }

  DecodingError error(std::string_view key, const char* expected) const {
    const std::string name = '"' + std::string(key) + '"';
    return {name + (field(key) ? std::string(" is not ") + expected : " is missing")};
  }

  const JsonFields& fields_;
};

class JsonCoder : public Coder {
 public:
  std::optional<std::string> encode(
      const std::function<void(KeyedEncoder&)>& write) const override {
    JsonEncoder encoder;
    write(encoder);
    return encoder.coded();
  }

  std::optional<DecodingError> decode(
      std::string_view coded, const std::function<void(const KeyedDecoder&)>& read) const override {
    const auto object = parseJsonObject(coded);
    if (const auto* none = std::get_if<NoJsonObject>(&object)) return DecodingError{none->why};
    read(JsonDecoder(std::get<JsonFields>(object)));
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<Coder> makeJsonCoder() {
  return std::make_unique<JsonCoder>();
}

}  // namespace brevant
