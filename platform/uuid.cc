// SPDX-License-Identifier: MIT
#include "platform/uuid.h"

#include <array>
#include <string_view>

namespace brevant {

std::string newUuid(RandomSource& random) {
  std::array<std::uint8_t, 16> bytes{};
  random.fill(bytes);
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0FU) | 0x40U);  // version 4
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3FU) | 0x80U);  // RFC 4122 variant

  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text;
  text.reserve(36);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    text += kHex[bytes[i] >> 4U];
    text += kHex[bytes[i] & 15U];
  }
  return text;
}

}  // namespace brevant
