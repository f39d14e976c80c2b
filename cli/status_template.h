// SPDX-License-Identifier: MIT

// Templates of the status line: text with the fields {name}, {elapsed}, {total}, {state}, {color}
// and {count} in it. "{{" and "}}" are one brace each.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/status.h"

namespace brevant {

// What is wrong with a template, in one line; absent when nothing is.
std::optional<std::string> templateProblem(std::string_view text);

// The line for the first activity that runs, else the first that is paused. Where there is none
// the state is "idle", the count 0 and every other field empty. Control characters become spaces,
// whether they are of a name or of the template: it stays one line for whoever draws it.
std::string templateText(std::string_view text, const Status& status);

}  // namespace brevant
