// SPDX-License-Identifier: MIT
#include "live/activity_attribute.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brevant {
namespace {

using Key = ContentState::CodingKey;

constexpr std::array<std::string_view, 6> kKeyTexts = {"guid",  "typeName", "icon",
                                                       "color", "start",    "message"};

// Takes the values out of what was decoded, and keeps the first error.
class FirstError {
 public:
  template <typename Value>
  bool take(Decoded<Value> decoded, Value& field) {
    if (auto* const error = std::get_if<DecodingError>(&decoded)) {
      error_ = std::move(*error);
      return false;
    }
    field = std::get<Value>(std::move(decoded));
    return true;
  }

  const DecodingError& error() const { return error_; }

 private:
  DecodingError error_;
};

}  // namespace

std::optional<std::string> ActivityAttribute::encoded(const Coder& coder) const {
  return coder.encode([](KeyedEncoder&) {});
}

std::string_view ContentState::text(CodingKey key) {
  return kKeyTexts.at(static_cast<std::size_t>(key));
}

std::optional<ContentState::CodingKey> ContentState::codingKey(std::string_view text) {
  const auto found = std::find(kKeyTexts.begin(), kKeyTexts.end(), text);
  if (found == kKeyTexts.end()) return std::nullopt;
  return static_cast<CodingKey>(found - kKeyTexts.begin());
}

void ContentState::encode(KeyedEncoder& encoder) const {
  encoder.encode(text(Key::kGuid), guid);
  encoder.encode(text(Key::kTypeName), typeName);
  encoder.encode(text(Key::kIcon), icon);
  encoder.encode(text(Key::kColor), color);
  encoder.encode(text(Key::kStart), start);
  encoder.encode(text(Key::kMessage), message);
}

Decoded<ContentState> ContentState::decode(const KeyedDecoder& decoder) {
  ContentState state;
  FirstError first;
  if (first.take(decoder.text(text(Key::kGuid)), state.guid) &&
      first.take(decoder.text(text(Key::kTypeName)), state.typeName) &&
      first.take(decoder.text(text(Key::kIcon)), state.icon) &&
      first.take(decoder.unsignedInteger(text(Key::kColor)), state.color) &&
      first.take(decoder.date(text(Key::kStart)), state.start) &&
      first.take(decoder.text(text(Key::kMessage)), state.message)) {
    return state;
  }
  return first.error();
}

std::optional<std::string> ContentState::encoded(const Coder& coder) const {
  return coder.encode([this](KeyedEncoder& encoder) { encode(encoder); });
}

Decoded<ContentState> ContentState::decoded(const Coder& coder, std::string_view coded) {
  Decoded<ContentState> state = DecodingError{};
  const auto error =
      coder.decode(coded, [&](const KeyedDecoder& decoder) { state = decode(decoder); });
  if (error) return *error;
  return state;
}

}  // namespace brevant

std::size_t std::hash<brevant::ContentState>::operator()(
    const brevant::ContentState& state) const noexcept {
  std::size_t seed = 0;
  const auto feed = [&seed]<typename Value>(const Value& value) {
    seed ^= std::hash<Value>()(value) + 0x9E3779B97F4A7C15U + (seed << 6U) + (seed >> 2U);
  };
  feed(state.guid);
  feed(state.typeName);
  feed(state.icon);
  feed(state.color);
  feed(brevant::secondsSince2001(state.start));
  feed(state.message);
  return seed;
}
