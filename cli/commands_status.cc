// SPDX-License-Identifier: MIT
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_records.h"
#include "cli/status_format.h"
#include "cli/status_template.h"
#include "cli/text_records.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"

namespace brevant {
namespace {

std::string textForPeople(Context& context, const Status& status) {
  if (status.running.empty() && status.paused.empty()) {
    return context.platform.bundle.localizedString("complication.no_running") + '\n';
  }
  return statusText(status, context.platform.clock.now(), context.platform.calendar,
                    colorsOfStdout());
}

ExitCode printLine(Context& context, const std::string& format) {
  const auto manager = context.openForReading();
  context.print(formatted(readStatus(*manager, context.platform.clock), format));
  return context.doneReading();
}

ExitCode printStatus(Context& context) {
  const auto manager = context.openForReading();
  const Status status = readStatus(*manager, context.platform.clock);
  if (context.options.json) {
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
  const auto format =
      status.optionalWordOr("TEMPLATE", "--format", "One line, as a bar or a template wants it",
                            statusFormatNames(), templateProblem);
  status.exclude("--format", "--json");
  status.query([format](Context& context) {
    return *format ? printLine(context, **format) : printStatus(context);
  });
}

}  // namespace brevant
