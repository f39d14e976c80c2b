// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/coder.h"

namespace brevant {

// The static side of a Live Activity: it has none. Everything that identifies it or changes is in
// its content state.
struct ActivityAttribute {
  struct ContentState;

  // There are no keys, so no text is one.
  enum class CodingKey {};
  static std::optional<CodingKey> codingKey(std::string_view) { return std::nullopt; }

  // An empty keyed container.
  [[nodiscard]] std::optional<std::string> encoded(const Coder& coder) const;

  // Reads nothing, so every coded value will do.
  static ActivityAttribute decoded(std::string_view) { return {}; }

  bool operator==(const ActivityAttribute&) const = default;
};

// What a Live Activity shows. The coded form is the contract with the main application, which
// starts the Live Activity: one keyed container that holds all six keys.
struct ActivityAttribute::ContentState {
  std::string guid;      // of the activity
  std::string typeName;  // the category's name
  std::string icon;      // the name of the category's icon
  std::uint64_t color = 0;
  ReferenceDate start;  // from which the elapsed time counts
  std::string message;  // never shown; a control leaves its operation here before the end

  // In the order of coding. A key is known by its text alone, never by a number.
  enum class CodingKey { kGuid, kTypeName, kIcon, kColor, kStart, kMessage };
  static std::string_view text(CodingKey key);
  static std::optional<CodingKey> codingKey(std::string_view text);

  void encode(KeyedEncoder& encoder) const;

  // All six keys are required, each with its own type; the first that fails is the error.
  static Decoded<ContentState> decode(const KeyedDecoder& decoder);

  // Absent where the coder cannot write a field (a text that is no UTF-8).
  [[nodiscard]] std::optional<std::string> encoded(const Coder& coder) const;
  static Decoded<ContentState> decoded(const Coder& coder, std::string_view coded);

  bool operator==(const ContentState&) const = default;
};

using ContentState = ActivityAttribute::ContentState;

}  // namespace brevant

// Field by field in the order of coding.
template <>
struct std::hash<brevant::ContentState> {
  std::size_t operator()(const brevant::ContentState& state) const noexcept;
};
