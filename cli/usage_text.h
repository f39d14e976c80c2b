// SPDX-License-Identifier: MIT

// What the command line says about itself.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "cli/line_walk.h"

namespace CLI {
class Formatter;
class ParseError;
}  // namespace CLI

namespace brevant {

// Writes the usage of a command with the options of the program, which it takes too.
std::shared_ptr<CLI::Formatter> makeHelpFormatter();

// The usage of the command that the walk came to.
std::string helpText(const LineWalk& walk);

// What is wrong with the word that nothing takes, with the nearest that something would; for a walk
// that has one, with every command listed.
std::string strayText(const LineWalk& walk);

// What the parser found wrong, in the user's language where it is one of the common faults.
std::string parseErrorText(const CLI::ParseError& error);

// The message, and where the usage is told.
std::string withHelpHint(std::string_view what, const LineWalk& walk);

// The one that was most likely meant; empty when none is near.
std::string nearest(std::string_view word, std::span<const std::string> known);

}  // namespace brevant
