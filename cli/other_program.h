// SPDX-License-Identifier: MIT

// The programs that this one turns into.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/exit_code.h"

namespace brevant {

// The path of the running program.
std::string ownPath();

// "libexec/brevant-session" beside the folder of this program; absent where it is not installed.
std::optional<std::string> sessionProgram();

// $BREVANT_DESKTOP, else the one beside this program, else the one on PATH.
std::optional<std::string> desktopProgram();

// Starts `program` beside this one and does not wait for its end. Empty on success, else the
// reason.
std::string startBeside(const std::string& program, const std::vector<std::string>& arguments);

// The process becomes `program`. Comes back only when that fails, with the reason.
std::string become(const std::string& program, const std::vector<std::string>& arguments);

// Runs `program` to its end, with nothing of it on stdout. What it says on stderr is told as it is;
// one that crashes is not done, and does not outlive this process.
ExitCode runSilently(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace brevant
