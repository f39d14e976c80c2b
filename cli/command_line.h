// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/exit_code.h"
#include "cli/global_options.h"
#include "cli/line_walk.h"

namespace brevant {

class CommandLine;
class Context;

// An argument's value: the default until the command line has been parsed.
template <typename T>
using Value = std::shared_ptr<const T>;

// One command being described. A name with dashes makes an option ("-o,--output"), one without a
// word in its place ("GUID"). Cheap to copy; used only while its command line lives.
class Command {
 public:
  Value<bool> flag(const std::string& name, const std::string& help) const;
  Value<std::string> text(const std::string& name, const std::string& help) const;
  // The name of a file or directory, which is never empty.
  Value<std::string> path(const std::string& name, const std::string& help) const;
  Value<std::optional<std::string>> optionalText(const std::string& name,
                                                 const std::string& help) const;
  // One of the given words.
  Value<std::string> word(const std::string& name, const std::string& help,
                          const std::vector<std::string>& words) const;
  Value<std::optional<std::string>> optionalWord(const std::string& name, const std::string& help,
                                                 const std::vector<std::string>& words) const;
  // One of the given words, or another text ("TEMPLATE") in which `problem` finds nothing wrong.
  using Problem = std::function<std::optional<std::string>(const std::string& text)>;
  Value<std::optional<std::string>> optionalWordOr(const std::string& other,
                                                   const std::string& name, const std::string& help,
                                                   const std::vector<std::string>& words,
                                                   const Problem& problem) const;
  // Decimal, or hexadecimal after 0x.
  Value<std::uint64_t> number(const std::string& name, const std::string& help) const;

  // Of all its options exactly one is given.
  void needsOneOption() const;

  // These two are not given together; either may be an option of the program.
  void exclude(const std::string& one, const std::string& other) const;

  using Action = std::function<ExitCode(Context&)>;
  void run(Action action) const;

  // The same for a command that changes nothing: an answer that is lost is all that is lost.
  void query(Action action) const;

  // A command of this command: "live start".
  Command command(const std::string& name, const std::string& summary,
                  const std::string& example) const;

 private:
  friend class CommandLine;
  Command(CLI::App* app, CommandLine* line) : app_(app), line_(line) {}

  CLI::App*
      app_;  // null for a command that is not on the command line: its arguments are not built
  CommandLine* line_;
};

// The commands and global options of the program, and the parser of its arguments. Only commands
// whose names are among the arguments are built, all others just where they are to be listed, so
// that a start stays short however many commands there are. No command at all means "status".
class CommandLine {
 public:
  explicit CommandLine(std::vector<std::string> arguments);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  Command command(const std::string& name, const std::string& summary, const std::string& example);

  // A command that only gathers others.
  Command group(const std::string& name, const std::string& summary, const std::string& example);

  // The exit code when there is nothing to run: what was asked for is printed already, or the usage
  // was wrong and said so on stderr.
  std::optional<ExitCode> parse();

  // After a parse that left something to run.
  [[nodiscard]] const GlobalOptions& options() const { return options_; }
  [[nodiscard]] const std::vector<std::string>& arguments() const { return arguments_; }
  ExitCode run(Context& context) const { return action_(context); }
  [[nodiscard]] bool namesNoCommand() const { return namesNoCommand_; }
  [[nodiscard]] bool hasCommand(std::string_view name) const;

  // Where words lead, with every command there listed; for completions.
  LineWalk walk(const std::vector<std::string>& words);

  // The words that an option or a place takes; empty where it takes any.
  [[nodiscard]] std::vector<std::string> choices(const CLI::Option& option) const;

 private:
  friend class Command;

  struct Unbuilt {
    CLI::App* parent;
    std::string name;
    std::string summary;
  };

  void addGlobalOptions();
  void listUnbuilt();
  ExitCode refuseGroup(const LineWalk& walk);
  void allowOnly(CLI::Option& option, const std::vector<std::string>& words);
  [[nodiscard]] bool mentions(std::string_view word) const;
  Command addCommand(CLI::App& parent, const std::string& name, const std::string& summary,
                     const std::string& example);

  static constexpr const char* kStatusCommand = "status";

  std::vector<std::string> arguments_;
  GlobalOptions options_;
  std::unique_ptr<CLI::App> app_;
  bool namesNoCommand_ = false;
  std::vector<Unbuilt> unbuilt_;
  std::map<const CLI::Option*, std::vector<std::string>> choices_;
  Command::Action action_;
};

}  // namespace brevant
