// The programs that this one turns into.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brevant {

// The path of the running program.
std::string ownPath();

// "libexec/brevant-session" beside the folder of this program; absent where it is not installed.
std::optional<std::string> sessionProgram();

// $BREVANT_DESKTOP, else the one beside this program, else the one on PATH.
std::optional<std::string> desktopProgram();

// The process becomes `program`. Comes back only when that fails, with the reason.
std::string become(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace brevant
