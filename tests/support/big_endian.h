// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace brevant::test {

inline std::string bigEndian(std::size_t number, int bytes) {
  std::string result;
  while (bytes-- > 0) result += static_cast<char>(number >> (8U * static_cast<unsigned>(bytes)));
  return result;
}

}  // namespace brevant::test
