// SPDX-License-Identifier: MIT
#include "cli/context.h"

#include <utility>

#include "cli/database_place.h"
#include "cli/standard_streams.h"
#include "cli/words.h"
#include "manager/widget_manager.h"
#include "platform/task_queue.h"

namespace brevant {
namespace {

LinuxPlatformOptions platformOptions(const GlobalOptions& options, const std::string& container) {
  LinuxPlatformOptions result;
  result.container = container;
  result.now = options.now;
  result.systemVersion = options.systemVersion;
  result.isiOSAppOnMac = options.isiOSAppOnMac;
  result.resources = resourcesBesideProgram();
  return result;
}

}  // namespace

Context::Context(GlobalOptions globalOptions, std::vector<std::string> words,
                 NotificationService* service)
    : options(std::move(globalOptions)),
      arguments(std::move(words)),
      notifications(service),
      container(options.container.value_or(defaultContainer())),
      services_(platformOptions(options, container)),
      platform(services_.platform()) {}

Context::~Context() = default;

void Context::printLine(std::string_view text) {
  answer_.add(text);
  answer_.add("\n");
}

void Context::warn(std::string_view message) const {
  writeMessage(message);
}

ExitCode Context::refuse(std::string_view why) const {
  warn(why);
  return ExitCode::kNotDone;
}

ExitCode Context::done() {
  if (options.json) print("{}\n");
  return ExitCode::kDone;
}

void Context::warnIfNoDatabase() const {
  if (const std::optional<std::string> trouble = missingDatabase(platform.files)) warn(*trouble);
}

bool Context::warnIfNoContainer() const {
  const std::optional<std::string> trouble = missingContainer(platform.files);
  if (trouble) warn(*trouble);
  return !trouble;
}

std::unique_ptr<WidgetManager> Context::openManager() {
  return WidgetManager::open(platform, store.listener());
}

std::unique_ptr<WidgetManager> Context::openForReading() {
  warnIfNoDatabase();
  return openManager();
}

ExitCode Context::doneReading() {
  const std::optional<std::string> failure = store.failure();
  if (!failure) return ExitCode::kDone;
  answer_.clear();
  return refuse(tr("the database could not be read: %1", *failure));
}

ExitCode Context::deliverAnswer(ExitCode code) {
  if (std::exchange(answer_, {}).write()) return code;
  const bool isDone = code == ExitCode::kDone && !options.onlyAsks;
  return refuse(isDone ? tr("it is done, but the answer could not be written")
                       : tr("the answer could not be written"));
}

}  // namespace brevant
