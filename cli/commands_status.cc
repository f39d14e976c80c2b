#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_records.h"
#include "cli/text_bars.h"
#include "cli/text_records.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"

namespace brevant {
namespace {

std::string barText(const Status& status, const std::string& bar) {
  if (bar == "waybar") return waybarText(status);
  return bar == "i3blocks" ? i3blocksText(status) : polybarText(status);
}

std::string textForPeople(Context& context, const Status& status) {
  if (status.running.empty() && status.paused.empty()) {
    return context.platform.bundle.localizedString("complication.no_running") + '\n';
  }
  return statusText(status, context.platform.clock.now(), context.platform.calendar,
                    colorsOfStdout());
}

ExitCode printStatus(Context& context, const std::optional<std::string>& bar) {
  const auto manager = context.openForReading();
  const Status status = readStatus(*manager, context.platform.clock);
  if (bar) {
    context.print(barText(status, *bar));
  } else if (context.options.json) {
    context.print(statusJson(status));
  } else {
    context.print(textForPeople(context, status));
  }
  return context.doneReading();
}

}  // namespace

void addStatusCommand(CommandLine& line) {
  const Command status =
      line.command("status", "Show what runs and what is paused", "brevant status --format waybar");
  const auto bar = status.optionalWord("--format", "One line for a status bar",
                                       {"waybar", "i3blocks", "polybar"});
  status.query([bar](Context& context) { return printStatus(context, *bar); });
}

}  // namespace brevant
