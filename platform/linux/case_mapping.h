// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/text.h"

namespace brevant {

std::unique_ptr<CaseMapping> makeCaseMapping();

}  // namespace brevant
