#include "platform/linux/json_coder.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <set>

#include "platform/linux/json_check.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

std::string inQuotes(std::string_view key) {
  return "\"" + std::string(key) + "\"";
}

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
  explicit JsonDecoder(const Json& object) : object_(object) {}

  Decoded<std::string> text(std::string_view key) const override {
    return value<std::string>(key, &Json::is_string, "a text");
  }

  Decoded<std::uint64_t> unsignedInteger(std::string_view key) const override {
    return value<std::uint64_t>(key, &Json::is_number_unsigned,
                                "a whole number from 0 to 18446744073709551615");
  }

  Decoded<ReferenceDate> date(std::string_view key) const override {
    const Decoded<double> seconds = value<double>(key, &Json::is_number, "a number of seconds");
    if (const auto* error = std::get_if<DecodingError>(&seconds)) return *error;
    return ReferenceDate(Seconds(std::get<double>(seconds)));
  }

 private:
  template <typename Value>
  Decoded<Value> value(std::string_view key, bool (Json::*hasType)() const noexcept,
                       const char* expected) const {
    const auto found = object_.find(key);
    if (found == object_.end()) return DecodingError{inQuotes(key) + " is missing"};
    if (!((*found).*hasType)()) return DecodingError{inQuotes(key) + " is not " + expected};
    return found->template get<Value>();
  }

  const Json& object_;
};

// The object that the text stands for.
Decoded<Json> parsed(std::string_view coded) {
  if (std::string harm = harmInJson(coded); !harm.empty()) {
    return DecodingError{"The content " + harm};
  }
  std::set<std::string> keys;
  std::optional<std::string> key, repeated;  // the object's own: the last one; one that came again
  const auto look = [&](int depth, Json::parse_event_t event, const Json& value) {
    if (depth != 1 || event != Json::parse_event_t::key) return true;
    key = value.get<std::string>();
    if (!keys.insert(*key).second) repeated = key;
    return true;
  };
  try {
    Json object = Json::parse(coded, look);
    if (!object.is_object()) return DecodingError{"The content is no JSON object"};
    if (repeated) return DecodingError{inQuotes(*repeated) + " stands there twice"};
    return object;
  } catch (const Json::out_of_range&) {
    if (key) return DecodingError{inQuotes(*key) + " holds a number beyond all bounds"};
  } catch (const Json::exception&) {  // told below
  }
  return DecodingError{"The content is no JSON"};
}

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
    const Decoded<Json> object = parsed(coded);
    if (const auto* error = std::get_if<DecodingError>(&object)) return *error;
    read(JsonDecoder(std::get<Json>(object)));
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<Coder> makeJsonCoder() {
  return std::make_unique<JsonCoder>();
}

}  // namespace brevant
