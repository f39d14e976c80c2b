// SPDX-License-Identifier: MIT
#include "cli/program.h"

#include <csignal>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/context.h"
#include "cli/next_steps.h"
#include "cli/standard_streams.h"

namespace brevant {

void addCommands(CommandLine& line) {
  addStatusCommand(line);
  addSceneCommand(line);
  addQueryCommands(line);
  addChangeCommands(line);
  addWidgetCommands(line);
  addLiveCommands(line);
  addReminderCommands(line);
  addPictureCommands(line);
  addLinkCommand(line);
  addContainerCommands(line);
  line.command(kHelpCommand, "Tell the usage of the program, or of a command",
               "brevant help start");
}

int runProgram(int argc, const char* const* argv, NotificationService* notifications) {
  keepStandardPlaces();
  // A file that may not grow any further is an error like a full disk, and no reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  std::vector<std::string> words(argv, argv + argc);
  if (!words.empty()) words.erase(words.begin());
  if (!words.empty() && words.front() == "complete") {
    words.erase(words.begin());
    return static_cast<int>(complete(words));
  }
  CommandLine line(std::move(words));
  addCommands(line);
  if (const std::optional<ExitCode> code = line.parse()) return static_cast<int>(*code);
  Context context(line.options(), line.arguments(), notifications);
  const ExitCode code = line.run(context);
  if (line.namesNoCommand() && code == ExitCode::kDone && !context.options.json) {
    context.print(nextSteps(line, context));
  }
  return static_cast<int>(context.deliverAnswer(code));
}

}  // namespace brevant
