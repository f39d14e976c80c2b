// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace brevant {

class CommandLine;
class Context;

// Two lines for people who called the program by its name alone: what to do next.
std::string nextSteps(const CommandLine& line, const Context& context);

}  // namespace brevant
