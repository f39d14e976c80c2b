// SPDX-License-Identifier: MIT
#include <algorithm>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/doctor.h"
#include "cli/json_container.h"
#include "cli/other_program.h"
#include "cli/sample_container.h"
#include "cli/shell_words.h"
#include "cli/terminal_text.h"
#include "cli/text_table.h"
#include "cli/words.h"
#include "platform/file_manager.h"
#include "platform/linux/cloud_database.h"

namespace brevant {
namespace {

// One line, however many there are.
std::string passedOverText(const std::string& first, std::size_t others) {
  if (others == 0) return tr("passed over: %1", first);
  return trPlural("passed over: %1; and %2 more", "passed over: %1; and %2 more", others, first,
                  std::to_string(others));
}

ExitCode listRecords(Context& context) {
  const std::optional<FileUrl> container = context.platform.files.containerUrl(kAppGroupIdentifier);
  std::size_t passedOver = 0;
  std::string first;
  const std::vector<CloudRecord> records =
      savedCloudRecords(cloudDirectory(container ? container->path() : ""),
                        kCloudContainerIdentifier, [&](const std::string& problem) {
                          if (++passedOver == 1) first = problem;
                        });
  if (passedOver > 0) context.warn(passedOverText(first, passedOver - 1));
  if (records.empty()) context.warnIfNoContainer();
  if (context.options.json) {
    context.print(cloudRecordsJson(records));
    return ExitCode::kDone;
  }
  for (const CloudRecord& record : records) {
    context.printLine(printable(record.recordType + "  " + record.recordName));
  }
  return ExitCode::kDone;
}

std::string findingsText(const std::vector<Finding>& findings) {
  TextTable table;
  for (const Finding& finding : findings) {
    table.add({{tr(finding.check.c_str())},
               {tr(stateName(finding.state).c_str())},
               {printable(finding.message)}});
    if (!finding.advice.empty()) table.add({{""}, {""}, {"→ " + finding.advice}});
  }
  return table.text(Colors::kNone);
}

ExitCode runDoctor(Context& context) {
  if (context.options.json) keepEnglish();
  if (context.notifications == nullptr) {
    if (const auto program = sessionProgram()) {
      return context.refuse(become(*program, context.arguments));
    }
  }
  const std::vector<Finding> findings = examine(context);
  context.print(context.options.json ? findingsJson(findings) : findingsText(findings));
  const auto problems = std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.state == Finding::State::kProblem;
  });
  const ExitCode delivered = context.deliverAnswer(ExitCode::kDone);
  if (problems == 0) return delivered;
  const auto count = static_cast<std::size_t>(problems);
  return context.refuse(
      trPlural("problems found: %1", "problems found: %1", count, std::to_string(count)));
}

ExitCode makeSample(Context& context, const std::string& directory) {
  const auto trouble = makeSampleContainer(context, directory);
  if (trouble) return context.refuse(*trouble);
  if (needsEscapes(directory)) {
    context.warn(
        tr("the path of %1 needs percent escapes, so its database will not be found: move it to a "
           "path without spaces and other special characters",
           directory));
  }
  if (context.options.json) return context.done();
  context.printLine(tr("A container to try everything on: %1", printable(directory)));
  context.printLine("  brevant status --container " + shellQuoted(directory));
  return ExitCode::kDone;
}

}  // namespace

void addContainerCommands(CommandLine& line) {
  line.command("cloud", "List the saved cloud records", "brevant cloud --json").query(listRecords);
  line.command("doctor", "Check everything that is needed, and say what to do", "brevant doctor")
      .query(runDoctor);
  const Command sample = line.command("sample", "Make a container to try everything on",
                                      "brevant sample ~/brevant-sample");
  const auto directory = sample.path("DIR", "The new container");
  sample.run([directory](Context& context) { return makeSample(context, *directory); });
}

}  // namespace brevant
