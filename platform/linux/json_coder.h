// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/coder.h"

namespace brevant {

// Codes a keyed container as a JSON object.
std::unique_ptr<Coder> makeJsonCoder();

}  // namespace brevant
