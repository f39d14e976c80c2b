// SPDX-License-Identifier: MIT

// Views and images in the form that widget hosts read.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/image_codec.h"
#include "platform/view.h"

namespace brevant {

// Texts are copied as they stand; whoever prints the answer replaces what is no UTF-8.
nlohmann::ordered_json archivedView(const View& view, const ImageCodec& codec);

// Size in points, scale, and the pixels as PNG in base64 (null when they cannot be encoded); the
// name as well for a resource image. Null for no image.
nlohmann::ordered_json archivedImage(const ImageRef& image, const ImageCodec& codec);

}  // namespace brevant
