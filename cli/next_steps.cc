// SPDX-License-Identifier: MIT
#include "cli/next_steps.h"

#include "cli/command_line.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/words.h"

namespace brevant {

std::string nextSteps(const CommandLine& line, const Context& context) {
  if (!missingDatabase(context.platform.files)) {
    return '\n' +
           tr("brevant start CATEGORY starts one of brevant categories; stop, pause, resume change "
              "it\n"
              "brevant help lists the commands, brevant help COMMAND tells more about one\n");
  }
  const std::string begin =
      line.hasCommand("init")
          ? tr("brevant init begins a log of your own, brevant sample DIR makes one to try\n")
          : tr("brevant sample DIR makes one to try\n");
  return '\n' + begin +
         tr("brevant doctor checks what is needed, brevant help lists the commands\n");
}

}  // namespace brevant
