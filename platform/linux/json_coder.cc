#include "platform/linux/json_coder.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <set>

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

class JsonEncoder : public KeyedEncoder {
 public:
  void encode(std::string_view key, std::string_view text) override { put(key, text); }
  void encode(std::string_view key, std::uint64_t number) override { put(key, number); }
  void encode(std::string_view key, Date date) override {
    const double seconds = secondsSince1970(date) - kReferenceDate;
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

  Decoded<Date> date(std::string_view key) const override {
    const Decoded<double> seconds = value<double>(key, &Json::is_number, "a number of seconds");
    if (const auto* error = std::get_if<DecodingError>(&seconds)) return *error;
    return dateFromSeconds(std::get<double>(seconds) + kReferenceDate);
  }

 private:
  template <typename Value>
  Decoded<Value> value(std::string_view key, bool (Json::*hasType)() const noexcept,
                       const char* expected) const {
    const auto found = object_.find(key);
    if (found == object_.end()) return DecodingError{quoted(key) + " is missing"};
    if (!((*found).*hasType)()) return DecodingError{quoted(key) + " is not " + expected};
    return found->template get<Value>();
  }

  static std::string quoted(std::string_view key) { return "\"" + std::string(key) + "\""; }

  const Json& object_;
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
    std::set<std::string> keys;
    std::optional<std::string> repeated;
    const Json object = Json::parse(
        coded,
        [&](int depth, Json::parse_event_t event, Json& parsed) {
          const bool isKey = depth == 1 && event == Json::parse_event_t::key;
          if (isKey && !keys.insert(parsed.get<std::string>()).second) {
            repeated = parsed.get<std::string>();
          }
          return true;
        },
        false);
    if (object.is_discarded()) return DecodingError{"The content is no JSON"};
    if (!object.is_object()) return DecodingError{"The content is no JSON object"};
    if (repeated) return DecodingError{"\"" + *repeated + "\" stands there twice"};
    read(JsonDecoder(object));
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<Coder> makeJsonCoder() {
  return std::make_unique<JsonCoder>();
}

}  // namespace brevant
