#include "cli/context.h"

#include <utility>

#include "cli/database_place.h"
#include "cli/standard_streams.h"
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

Platform watched(const Platform& real, RandomSource& random, Log& log) {
  return {real.clock,  real.calendar,      real.files,          real.settings, real.bundle,
          real.images, real.caseMapping,   real.coder,          real.process,  random,
          real.cloud,  real.notifications, real.liveActivities, real.tasks,    log};
}

}  // namespace

Context::Context(GlobalOptions globalOptions, std::vector<std::string> words,
                 NotificationService* service)
    : options(std::move(globalOptions)),
      arguments(std::move(words)),
      notifications(service),
      container(options.container.value_or(defaultContainer())),
      services_(platformOptions(options, container)),
      log(services_.platform().log),
      random(services_.platform().random),
      platform(watched(services_.platform(), random, log)) {}

// Tasks may still use the decorators, which go before the services that would wait for them.
Context::~Context() {
  platform.tasks.waitUntilIdle();
}

void Context::printLine(std::string_view text) {
  answer_ += text;
  answer_ += '\n';
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

std::unique_ptr<WidgetManager> Context::openForReading() {
  warnIfNoDatabase();
  return WidgetManager::open(platform);
}

ExitCode Context::doneReading() {
  const std::optional<std::string> failure = log.failure();
  if (!failure) return ExitCode::kDone;
  answer_.clear();
  return refuse("the database could not be read: " + *failure);
}

ExitCode Context::deliverAnswer(ExitCode code) {
  if (writeAnswer(std::exchange(answer_, {}))) return code;
  const bool isDone = code == ExitCode::kDone && !options.onlyAsks;
  return refuse(isDone ? "it is done, but the answer could not be written"
                       : "the answer could not be written");
}

}  // namespace brevant
