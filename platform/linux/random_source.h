// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/random_source.h"

namespace brevant {

std::unique_ptr<RandomSource> makeRandomSource();

}  // namespace brevant
