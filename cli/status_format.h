// SPDX-License-Identifier: MIT

// The lines that `status --format` writes.
#pragma once

#include <string>
#include <vector>

#include "cli/status.h"

namespace brevant {

// The formats that have a name; every other is a template.
std::vector<std::string> statusFormatNames();

// One line, its end included. A template is one in which nothing is wrong.
std::string formatted(const Status& status, const std::string& format);

}  // namespace brevant
