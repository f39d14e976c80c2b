// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace brevant {

// Where each word of a command line belongs, before any value is looked at. The parser, the errors
// and the completions all go by it, so that they cannot differ.
struct LineWalk {
  const CLI::App* command =
      nullptr;                    // the innermost that is named; the program itself when none is
  std::vector<std::string> path;  // the names on the way there
  std::vector<std::pair<const CLI::Option*, std::string>> options;  // flags have an empty value
  std::vector<std::string> words;                                   // those in their places
  const CLI::Option* open = nullptr;  // the last word is this option, without its value
  bool dashes = false;                // "--" came by: all that follow are words
  bool help = false;                  // asked for, by option or by command

  // The first word that nothing takes; the walk ends there.
  enum class Trouble { kUnknownWord, kUnknownOption, kNoValueTaken, kTwice };
  struct Stray {
    Trouble trouble;
    std::string word;
  };
  std::optional<Stray> stray;

  [[nodiscard]] bool has(std::string_view option) const;  // "--json"
  [[nodiscard]] bool gathers() const;                     // the command only has others
};

LineWalk walkLine(const CLI::App& program, const std::vector<std::string>& words);

// The same line in the order that leaves the parser nothing to guess: commands, options each before
// its value, "--", words.
std::vector<std::string> inOrder(const LineWalk& walk);

// The name in full: "--output".
std::string nameOf(const CLI::Option& option);

bool takesValue(const CLI::Option& option);

// Of a command, those in their places ("GUID") and those with dashes.
std::vector<const CLI::Option*> placesOf(const CLI::App& command);
std::vector<const CLI::Option*> optionsOf(const CLI::App& command);

std::vector<std::string> commandNames(const CLI::App& command);

inline constexpr const char* kHelpCommand = "help";

}  // namespace brevant
