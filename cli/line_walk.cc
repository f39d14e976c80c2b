// SPDX-License-Identifier: MIT
#include "cli/line_walk.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

namespace brevant {
namespace {

using Trouble = LineWalk::Trouble;

// An option of the command, or of the program.
const CLI::Option* findOption(const CLI::App& command, const std::string& name) {
  for (const CLI::App* app = &command; app != nullptr; app = app->get_parent()) {
    if (const CLI::Option* option = app->get_option_no_throw(name)) return option;
  }
  return nullptr;
}

const CLI::App* findCommand(const CLI::App& command, const std::string& name) {
  for (const CLI::App* app : command.get_subcommands(nullptr)) {
    if (app->get_name() == name) return app;
  }
  return nullptr;
}

// "--name", "--name=value", "-n" or "-nvalue".
struct Spelled {
  std::string name;
  std::optional<std::string> value;
};

Spelled spelled(const std::string& word) {
  if (word.starts_with("--")) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) return {word, std::nullopt};
    return {word.substr(0, equals), word.substr(equals + 1)};
  }
  if (word.size() == 2) return {word, std::nullopt};
  return {word.substr(0, 2), word.substr(2)};
}

void takeValue(LineWalk& walk, const CLI::Option& option, const std::string& value) {
  if (walk.has(nameOf(option))) walk.stray = {Trouble::kTwice, nameOf(option)};
  walk.options.emplace_back(&option, value);
}

void takeOption(LineWalk& walk, const std::string& word) {
  auto [name, value] = spelled(word);
  const CLI::Option* option = findOption(*walk.command, name);
  if (option == nullptr) {
    walk.stray = {Trouble::kUnknownOption, word};
  } else if (takesValue(*option)) {
    if (value) {
      takeValue(walk, *option, *value);
    } else {
      walk.open = option;
    }
  } else if (value) {
    walk.stray = {Trouble::kNoValueTaken, name};
  } else {
    walk.help = walk.help || nameOf(*option) == "--help";
    walk.options.emplace_back(option, "");
  }
}

void takeWord(LineWalk& walk, const std::string& word) {
  if (const CLI::App* command = findCommand(*walk.command, word)) {
    if (walk.path.empty() && word == kHelpCommand) {
      walk.help = true;  // what follows is walked as if it were to be run
      return;
    }
    walk.command = command;
    walk.path.push_back(word);
  } else if (walk.words.size() < placesOf(*walk.command).size()) {
    walk.words.push_back(word);
  } else {
    walk.stray = {Trouble::kUnknownWord, word};
  }
}

}  // namespace

bool LineWalk::has(std::string_view option) const {
  return std::any_of(options.begin(), options.end(),
                     [option](const auto& given) { return nameOf(*given.first) == option; });
}

bool LineWalk::gathers() const {
  return command->get_require_subcommand_min() > 0;
}

LineWalk walkLine(const CLI::App& program, const std::vector<std::string>& words) {
  LineWalk walk;
  walk.command = &program;
  for (const std::string& word : words) {
    if (walk.open != nullptr) {
      takeValue(walk, *std::exchange(walk.open, nullptr), word);
    } else if (!walk.dashes && word == "--") {
      walk.dashes = true;
    } else if (!walk.dashes && word.size() > 1 && word.starts_with('-')) {
      takeOption(walk, word);
    } else {
      takeWord(walk, word);
    }
    if (walk.stray) break;
  }
  return walk;
}

std::vector<std::string> inOrder(const LineWalk& walk) {
  std::vector<std::string> result = walk.path;
  for (const auto& [option, value] : walk.options) {
    result.push_back(nameOf(*option));
    if (takesValue(*option)) result.push_back(value);
  }
  if (!walk.words.empty()) result.emplace_back("--");
  result.insert(result.end(), walk.words.begin(), walk.words.end());
  return result;
}

std::string nameOf(const CLI::Option& option) {
  if (!option.get_lnames().empty()) return "--" + option.get_lnames().front();
  return option.get_single_name();
}

bool takesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

std::vector<const CLI::Option*> placesOf(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<const CLI::Option*> optionsOf(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::vector<std::string> commandNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* app : command.get_subcommands(nullptr)) names.push_back(app->get_name());
  return names;
}

}  // namespace brevant
