// SPDX-License-Identifier: MIT
#include "cli/next_steps.h"

#include "cli/command_line.h"
#include "cli/context.h"
#include "cli/database_place.h"

namespace brevant {

std::string nextSteps(const CommandLine& line, const Context& context) {
  if (!missingDatabase(context.platform.files)) {
    return "\nbrevant start CATEGORY starts one of brevant categories; stop, pause, resume change "
           "it\n"
           "brevant help lists the commands, brevant help COMMAND tells more about one\n";
  }
  const std::string begin =
      line.hasCommand("init") ? "brevant init begins a log of your own, " : "";
  return "\n" + begin + "brevant sample DIR makes one to try\n" +
         "brevant doctor checks what is needed, brevant help lists the commands\n";
}

}  // namespace brevant
