// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/bundle.h"
#include "platform/image_codec.h"

namespace brevant {

// The resources below `share`: pictures in brevant/images, translations in locale. The language is
// the environment's when the first text is asked for, and then stays.
std::unique_ptr<Bundle> makeBundle(const std::string& share, const ImageCodec& codec);

}  // namespace brevant
