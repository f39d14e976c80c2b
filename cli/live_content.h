// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <variant>

#include "cli/exit_code.h"

namespace brevant {

class Context;

// The coded content that the main application gives the Live Activity of a running activity, or the
// code to end with where there is no such activity, which is then told already.
std::variant<std::string, ExitCode> runningContent(Context& context, const std::string& guid);

}  // namespace brevant
