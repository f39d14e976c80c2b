// SPDX-License-Identifier: MIT
#include "widget/resource_image.h"

#include "platform/fatal_error.h"

namespace brevant {

ImageRef resourceImage(const Bundle& bundle, const std::string& name) {
  ImageRef image = bundle.imageNamed(name);
  if (!image) fatalError("the resource image " + name + " is missing");
  return image;
}

}  // namespace brevant
