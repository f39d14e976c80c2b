// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/bundle.h"

namespace brevant {

// A resource image that the presentation cannot do without: a missing one is a fatal error.
ImageRef resourceImage(const Bundle& bundle, const std::string& name);

}  // namespace brevant
