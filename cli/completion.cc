// SPDX-License-Identifier: MIT
#include "cli/completion.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <set>
#include <utility>

#include "cli/bash_line.h"
#include "cli/candidates.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/standard_streams.h"
#include "cli/words.h"

namespace brevant {
namespace {

// The line that is being typed. A value behind "=" is a word of its own here.
struct Typed {
  std::vector<std::string> before;
  std::string current;
  std::string head;  // "--option="
};

Typed typedLine(std::vector<std::string> before, std::string current) {
  Typed typed{std::move(before), std::move(current), {}};
  const std::size_t equals = typed.current.find('=');
  if (typed.current.starts_with("--") && equals != std::string::npos) {
    typed.head = typed.current.substr(0, equals + 1);
    typed.before.push_back(typed.current.substr(0, equals));
    typed.current.erase(0, equals + 1);
  }
  return typed;
}

struct Answer {
  const char* kind = "words";
  std::vector<Candidate> words;
};

// Of a folder's name nothing but a home folder in front is expanded.
GlobalOptions globalOptions(const LineWalk& walk) {
  GlobalOptions options;
  for (const auto& [option, value] : walk.options) {
    if (nameOf(*option) != "--container" || value.empty()) continue;
    const char* const home = std::getenv("HOME");
    const bool isAtHome = value.starts_with("~/") && home != nullptr;
    options.container = isAtHome ? home + value.substr(1) : value;
  }
  return options;
}

Answer commandsOf(const CLI::App& command) {
  Answer answer;
  for (const CLI::App* app : command.get_subcommands(nullptr)) {
    answer.words.push_back({app->get_name(), tr(app->get_description().c_str())});
  }
  return answer;
}

// Those that were not given yet.
Answer optionsFor(const LineWalk& walk) {
  Answer answer;
  std::set<std::string> listed;
  for (const CLI::App* app = walk.command; app != nullptr; app = app->get_parent()) {
    for (const CLI::Option* option : optionsOf(*app)) {
      const std::string name = nameOf(*option);
      if (walk.has(name) || !listed.insert(name).second) continue;
      answer.words.push_back({name, tr(option->get_description().c_str())});
    }
  }
  return answer;
}

Answer valuesOf(const CLI::Option& option, const LineWalk& walk, const CommandLine& line) {
  Answer answer;
  for (const std::string& word : line.choices(option)) answer.words.push_back({word, ""});
  if (!answer.words.empty()) return answer;
  const std::string name = option.get_positional() ? option.get_name(true) : nameOf(option);
  const PlaceKind kind = placeKind(walk.command->get_name(), name);
  if (kind == PlaceKind::kFile) return {"files", {}};
  if (kind == PlaceKind::kFolder) return {"folders", {}};
  if (kind == PlaceKind::kAnything) return {};
  Context context(globalOptions(walk), {}, nullptr);
  answer.words = candidates(context, kind);
  return answer;
}

Answer answerTo(const Typed& typed) {
  CommandLine line(typed.before);
  addCommands(line);
  const LineWalk walk = line.walk(typed.before);
  if (walk.stray) return {};
  if (walk.open != nullptr) return valuesOf(*walk.open, walk, line);
  if (!typed.head.empty()) return {};
  if (!walk.dashes && typed.current.starts_with('-')) return optionsFor(walk);
  const auto places = placesOf(*walk.command);
  if (walk.words.size() < places.size()) return valuesOf(*places[walk.words.size()], walk, line);
  Answer commands = commandsOf(*walk.command);
  return commands.words.empty() && !walk.dashes ? optionsFor(walk) : commands;
}

ExitCode answer(const std::string& text) {
  return writeAnswer(text) ? ExitCode::kDone : ExitCode::kNotDone;
}

ExitCode completeForBash(const std::string& breaks, const std::string& line) {
  const BashLine read(line, breaks);
  const Typed typed = typedLine(read.before(), read.current());
  const auto [kind, words] = answerTo(typed);
  std::string text = kind + std::string(1, '\0');
  for (const Candidate& word : words) {
    const std::string whole = typed.head + word.text;
    if (whole.starts_with(read.current())) text += read.completing(whole) + '\0';
  }
  return answer(text);
}

}  // namespace

ExitCode complete(const std::vector<std::string>& arguments) {
  const std::string shell = arguments.empty() ? "" : arguments.front();
  if (shell == "bash" && arguments.size() == 3) return completeForBash(arguments[1], arguments[2]);
  if ((shell != "zsh" && shell != "fish") || arguments.size() < 2) return ExitCode::kWrongUsage;
  const Typed typed = typedLine({arguments.begin() + 1, arguments.end() - 1}, arguments.back());
  const auto [kind, words] = answerTo(typed);
  std::string text = kind + std::string(1, '\0');
  const char between = shell == "zsh" ? '\0' : '\t';
  for (const Candidate& word : words) {
    text += typed.head + word.text + between + word.description + '\0';
  }
  return answer(text);
}

}  // namespace brevant
