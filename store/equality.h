// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace brevant {

// How records compare their fields: an absent value equals nothing, not even another absent one.
template <typename T>
bool arePresentAndEqual(const std::optional<T>& a, const std::optional<T>& b) {
  return a && b && *a == *b;
}

}  // namespace brevant
