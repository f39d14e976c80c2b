// SPDX-License-Identifier: MIT

// How the program reads the values of its arguments. Each is absent for a text that is no such
// value as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brevant {

// Decimal, or hexadecimal after "0x".
std::optional<std::uint64_t> parseUnsigned(std::string_view text);

// A finite number.
std::optional<double> parseSeconds(std::string_view text);

// The shortest text without an exponent that reads back as the same number.
std::string exactText(double number);

// Numbers with dots between them, e.g. "16.1".
bool isVersion(std::string_view text);

}  // namespace brevant
