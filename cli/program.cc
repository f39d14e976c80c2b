#include "cli/program.h"

#include <csignal>
#include <span>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/next_steps.h"
#include "cli/standard_streams.h"

namespace brevant {

int runProgram(int argc, const char* const* argv, NotificationService* notifications) {
  keepStandardPlaces();
  // A file that may not grow any further is an error like a full disk, and no reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
  CommandLine line(words.empty() ? words : words.subspan(1));
  addStatusCommand(line);
  addQueryCommands(line);
  addChangeCommands(line);
  addWidgetCommands(line);
  addLiveCommands(line);
  addReminderCommands(line);
  addPictureCommands(line);
  addLinkCommand(line);
  addContainerCommands(line);

  if (const std::optional<ExitCode> code = line.parse()) return static_cast<int>(*code);
  Context context(line.options(), line.arguments(), notifications);
  const ExitCode code = line.run(context);
  if (line.namesNoCommand() && code == ExitCode::kDone && !context.options.json) {
    context.print(nextSteps(line, context));
  }
  return static_cast<int>(context.deliverAnswer(code));
}

}  // namespace brevant
