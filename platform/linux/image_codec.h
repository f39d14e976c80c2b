// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/image_codec.h"

namespace brevant {

std::unique_ptr<ImageCodec> makeImageCodec();

}  // namespace brevant
