// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/random_source.h"

namespace brevant {

// A new random UUID (RFC 4122, version 4) in canonical form: 36 characters, upper-case hexadecimal
// digits in groups of 8-4-4-4-12.
std::string newUuid(RandomSource& random);

}  // namespace brevant
