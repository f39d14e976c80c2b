// SPDX-License-Identifier: MIT

// Keyed coding of values: the contract between the processes that write and read a content state.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/date.h"

namespace brevant {

// Why a value does not decode: the key and the reason.
struct DecodingError {
  std::string message;
};

template <typename T>
using Decoded = std::variant<T, DecodingError>;

// One keyed container being written. Keys stand in the order they are encoded.
class KeyedEncoder {
 public:
  virtual ~KeyedEncoder() = default;

  virtual void encode(std::string_view key, std::string_view text) = 0;
  virtual void encode(std::string_view key, std::uint64_t number) = 0;
  // As floating-point seconds since 2001-01-01 00:00 UTC, without loss.
  virtual void encode(std::string_view key, ReferenceDate date) = 0;
};

// One keyed container being read. Types are exact: no text stands for a number, no fraction or
// negative number for an unsigned integer. Each error names its key.
class KeyedDecoder {
 public:
  virtual ~KeyedDecoder() = default;

  virtual Decoded<std::string> text(std::string_view key) const = 0;
  virtual Decoded<std::uint64_t> unsignedInteger(std::string_view key) const = 0;
  virtual Decoded<ReferenceDate> date(std::string_view key) const = 0;
};

// The coder of both sides. Thread-safe, without state.
class Coder {
 public:
  virtual ~Coder() = default;

  // The coded form of what `write` encodes; absent when a text is no UTF-8 or a number no number.
  virtual std::optional<std::string> encode(
      const std::function<void(KeyedEncoder&)>& write) const = 0;

  // Hands the decoded container to `read`; an error when the text is no keyed container. What
  // `read` meets is its own business.
  virtual std::optional<DecodingError> decode(
      std::string_view coded, const std::function<void(const KeyedDecoder&)>& read) const = 0;
};

}  // namespace brevant
