// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/log.h"

namespace brevant {

// Lines on stderr. Control characters in them are spelled out, so that no text from a file or a
// database can move the cursor of a terminal or fake a second line.
std::unique_ptr<Log> makeStderrLog();

}  // namespace brevant
