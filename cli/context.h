// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/answer.h"
#include "cli/exit_code.h"
#include "cli/global_options.h"
#include "cli/store_report.h"
#include "platform/linux/linux_platform.h"
#include "platform/platform.h"

namespace brevant {

class NotificationService;
class WidgetManager;

// What a command is run with: the options, the platform and the way to answer. Owns the platform's
// services for the life of the process. Answers are collected and printed when the command is
// done, so that a command that fails prints none; messages go to stderr at once.
class Context {
 public:
  // `service` shows notifications; it is borrowed, and null in the program that has none.
  Context(GlobalOptions globalOptions, std::vector<std::string> words,
          NotificationService* service);
  ~Context();
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  void print(std::string_view text) { answer_.add(text); }
  void print(Answer answer) { answer_.add(std::move(answer)); }
  void printLine(std::string_view text);

  // One line on stderr, in which nothing can play tricks on a terminal.
  void warn(std::string_view message) const;
  // The same, for an exit code of "not done".
  ExitCode refuse(std::string_view why) const;

  // For a command that has an effect and nothing to tell: an empty object where JSON is expected.
  ExitCode done();

  // Says on stderr when the shared database is not there, and why.
  void warnIfNoDatabase() const;

  // The same for the container, for a query that needs no database. False when it is not there.
  bool warnIfNoContainer() const;

  // Opens the shared database, which tells `store`.
  std::unique_ptr<WidgetManager> openManager();

  // The same for queries; they are empty, and this says why, when it is not there.
  std::unique_ptr<WidgetManager> openForReading();

  // Refuses, and takes back what was printed, when the database told of a failure: what was read
  // may then not be what is stored.
  ExitCode doneReading();

  // Writes what was printed so far. Afterwards the code, or "not done" when it could not be
  // written.
  ExitCode deliverAnswer(ExitCode code);

  const GlobalOptions options;
  const std::vector<std::string> arguments;  // all words of the command line
  NotificationService* const notifications;
  const std::string container;  // as it was asked for; relative to the working directory

 private:
  Answer answer_;
  LinuxPlatform services_;

 public:
  StoreReport store;  // what the managers opened here tell
  const Platform platform;
};

}  // namespace brevant
