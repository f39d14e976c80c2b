// SPDX-License-Identifier: MIT

// Views and images in the form that widget hosts read.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "platform/image.h"
#include "platform/view.h"

namespace brevant {

// Answers what stands for the pixels of an image that there is.
using PixelArchiver = std::function<nlohmann::ordered_json(const ImageRef&)>;

// Texts are copied as they stand; whoever prints the answer replaces what is no UTF-8.
nlohmann::ordered_json archivedView(const View& view, const PixelArchiver& pixels);

// Size in points, scale and the pixels; the name as well for a resource image. Null for no image.
nlohmann::ordered_json archivedImage(const ImageRef& image, const PixelArchiver& pixels);

}  // namespace brevant
