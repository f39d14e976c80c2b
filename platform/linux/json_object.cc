// SPDX-License-Identifier: MIT
#include "platform/linux/json_object.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/linux/json_check.h"

namespace brevant {
namespace {

using Json = nlohmann::json;

constexpr int kNumberOutOfRange = 406;  // the parser's code

// Keeps the fields of the outermost object, whatever else is nested in them.
class Fields : public Json::json_sax_t {
 public:
  bool null() override { return put({}); }
  bool boolean(bool) override { return put({}); }
  bool number_integer(number_integer_t value) override {
    return put(JsonNumber{std::to_string(value), static_cast<double>(value)});
  }
  bool number_unsigned(number_unsigned_t value) override {
    return put(JsonNumber{std::to_string(value), static_cast<double>(value)});
  }
  bool number_float(number_float_t value, const string_t& spelling) override {
    return put(JsonNumber{spelling, value});
  }
  bool string(string_t& value) override { return put(std::move(value)); }
  bool binary(binary_t&) override { return put({}); }

  bool start_object(std::size_t) override {
    isObject_ = isObject_ || depth_ == 0;
    return enter();
  }
  bool end_object() override { return leave(); }
  bool start_array(std::size_t) override { return enter(); }
  bool end_array() override { return leave(); }
  bool key(string_t& name) override {
    if (depth_ != 1) return true;
    key_ = std::move(name);
    if (!fields_.try_emplace(*key_).second) why_ = inQuotes() + " stands there twice";
    return true;
  }

  bool parse_error(std::size_t, const std::string&, const Json::exception& error) override {
    const bool isKnown = error.id == kNumberOutOfRange && key_;
    why_ = isKnown ? inQuotes() + " holds a number beyond all bounds" : "The content is no JSON";
    return false;
  }

  std::variant<JsonFields, NoJsonObject> result() {
    if (!why_.empty()) return NoJsonObject{why_};
    if (!isObject_) return NoJsonObject{"The content is no JSON object"};
    return std::move(fields_);
  }

 private:
  bool put(JsonField value) {
    if (depth_ == 1 && isObject_) fields_[*key_] = std::move(value);
    return true;
  }
  bool enter() {
    ++depth_;
    return true;
  }
  bool leave() {
    --depth_;
    return true;
  }
  std::string inQuotes() const { return '"' + *key_ + '"'; }

  JsonFields fields_;
  std::optional<std::string> key_;  // the object's own: the last one
  std::string why_;
  int depth_ = 0;
  bool isObject_ = false;
};

// Beyond all that the digits could make up for, where it is longer than a number can be.
std::int64_t exponentOf(std::string_view text) {
  constexpr std::int64_t kHuge = std::int64_t{1} << 40U;
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), exponent).ec;
  if (error == std::errc()) return exponent;
  return text.starts_with('-') ? -kHuge : kHuge;
}

}  // namespace

std::variant<JsonFields, NoJsonObject> parseJsonObject(std::string_view text) {
  if (std::string harm = harmInJson(text); !harm.empty()) {
    return NoJsonObject{"The content " + harm};
  }
  Fields fields;
  Json::sax_parse(text, &fields);
  return fields.result();
}

std::optional<std::uint64_t> wholeNumber(std::string_view spelling) {
  const bool isNegative = spelling.starts_with('-');
  if (isNegative) spelling.remove_prefix(1);
  const std::size_t e = spelling.find_first_of("eE");
  std::int64_t zeros = e == std::string_view::npos ? 0 : exponentOf(spelling.substr(e + 1));
  std::string digits(spelling.substr(0, e));
  if (const std::size_t point = digits.find('.'); point != std::string::npos) {
    digits.erase(point, 1);
    zeros -= static_cast<std::int64_t>(digits.size() - point);
  }
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.empty()) return 0;
  for (; digits.ends_with('0'); ++zeros) digits.pop_back();

  constexpr std::int64_t kMostDigits = 20;
  if (isNegative || zeros < 0 || zeros > kMostDigits) return std::nullopt;
  digits.append(static_cast<std::size_t>(zeros), '0');
  std::uint64_t number = 0;
  const char* const end = digits.data() + digits.size();
  if (std::from_chars(digits.data(), end, number).ec != std::errc()) return std::nullopt;
  return number;
}

}  // namespace brevant
