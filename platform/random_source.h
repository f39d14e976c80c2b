// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace brevant {

// Random bytes that nobody can predict. Thread-safe; cannot fail.
class RandomSource {
 public:
  virtual ~RandomSource() = default;

  virtual void fill(std::span<std::uint8_t> bytes) = 0;
};

}  // namespace brevant
