#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/exit_code.h"
#include "cli/global_options.h"

namespace CLI {
class App;
}

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
  Value<std::optional<std::string>> optionalText(const std::string& name,
                                                 const std::string& help) const;
  // One of the given words.
  Value<std::string> word(const std::string& name, const std::string& help,
                          const std::vector<std::string>& words) const;
  Value<std::optional<std::string>> optionalWord(const std::string& name, const std::string& help,
                                                 const std::vector<std::string>& words) const;
  // Decimal, or hexadecimal after 0x.
  Value<std::uint64_t> number(const std::string& name, const std::string& help) const;

  enum class Options { kAtMostOne, kExactlyOne };
  void allow(Options count) const;

  void run(std::function<ExitCode(Context&)> action) const;

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
// that a start stays short however many commands there are.
class CommandLine {
 public:
  explicit CommandLine(std::span<const char* const> arguments);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  Command command(const std::string& name, const std::string& summary, const std::string& example);

  // A command that only gathers others.
  Command group(const std::string& name, const std::string& summary, const std::string& example);

  // The exit code when there is nothing to run: help was asked for and printed, or the usage was
  // wrong and said so on stderr.
  std::optional<ExitCode> parse();

  // After a parse that left something to run.
  [[nodiscard]] const GlobalOptions& options() const { return options_; }
  [[nodiscard]] const std::vector<std::string>& arguments() const { return arguments_; }
  ExitCode run(Context& context) const { return action_(context); }

 private:
  friend class Command;

  void addGlobalOptions();
  [[nodiscard]] bool mentions(std::string_view word) const;
  Command addCommand(CLI::App& parent, const std::string& name, const std::string& summary,
                     const std::string& example);

  std::vector<std::string> arguments_;
  GlobalOptions options_;
  std::unique_ptr<CLI::App> app_;
  const bool wantsHelp_;
  std::vector<std::pair<std::string, std::string>> unbuilt_;  // name and summary
  std::function<ExitCode(Context&)> action_;
};

}  // namespace brevant
