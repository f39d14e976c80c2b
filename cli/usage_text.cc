// SPDX-License-Identifier: MIT
#include "cli/usage_text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>

#include "cli/shell_words.h"

namespace brevant {
namespace {

using Trouble = LineWalk::Trouble;

class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() { label("SUBCOMMAND", "COMMAND"); }

  std::string make_footer(const CLI::App* app) const override {
    std::string text;
    if (const CLI::App* program = app->get_parent(); program != nullptr) {
      while (program->get_parent() != nullptr) program = program->get_parent();
      std::vector<const CLI::Option*> options = optionsOf(*program);
      std::erase_if(options, [app](const CLI::Option* option) {
        return app->get_option_no_throw(nameOf(*option)) != nullptr ||
               nameOf(*option) == "--version";
      });
      text = make_group("Options of every command", false, options).substr(1) + '\n';
    }
    return text + Formatter::make_footer(app);
  }
};

char lowercased(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The changes of a letter that make one word of the other; two neighbours in the wrong order are
// one.
std::size_t changes(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before;
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row.back();
}

std::string programAnd(const std::vector<std::string>& path) {
  std::string text = "brevant";
  for (const std::string& name : path) text += ' ' + name;
  return text;
}

std::string orNearest(const std::string& word, const std::vector<std::string>& known) {
  const std::string near = nearest(word, known);
  return near.empty() ? "" : ": did you mean " + near + '?';
}

std::vector<std::string> optionNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* app = &command; app != nullptr; app = app->get_parent()) {
    for (const CLI::Option* option : optionsOf(*app)) names.push_back(nameOf(*option));
  }
  return names;
}

std::string unknownOption(const LineWalk& walk, const std::string& word) {
  const std::string name = word.starts_with("--") ? word.substr(0, word.find('=')) : word;
  std::string text =
      "there is no option " + shellQuoted(name) + orNearest(name, optionNames(*walk.command));
  const auto places = placesOf(*walk.command);
  if (walk.words.size() < places.size()) {
    text += "; a " + places[walk.words.size()]->get_name(true) +
            " that begins with a dash stands after --: " + programAnd(walk.path) + " -- " +
            shellQuoted(word);
  }
  return text;
}

std::string unknownWord(const LineWalk& walk, const std::string& word) {
  const std::vector<std::string> known = commandNames(*walk.command);
  if (known.empty()) return "one word too many for " + walk.path.back() + ": " + shellQuoted(word);
  return (walk.path.empty() ? "there is" : walk.path.back() + " has") + " no command " +
         shellQuoted(word) + orNearest(word, known);
}

}  // namespace

std::shared_ptr<CLI::Formatter> makeHelpFormatter() {
  return std::make_shared<HelpFormatter>();
}

std::string helpText(const LineWalk& walk) {
  std::vector<std::string> above = walk.path;
  if (!above.empty()) above.pop_back();
  return walk.command->help(walk.path.empty() ? "" : programAnd(above));
}

std::string strayText(const LineWalk& walk) {
  const std::string& word = walk.stray->word;
  switch (walk.stray->trouble) {
    case Trouble::kUnknownWord:
      return unknownWord(walk, word);
    case Trouble::kUnknownOption:
      return unknownOption(walk, word);
    case Trouble::kNoValueTaken:
      return word + " takes no value";
    case Trouble::kTwice:
      return word + " is given twice";
  }
  return word;
}

std::string helpHint(const LineWalk& walk) {
  return " (" + programAnd(walk.path) + " --help tells the usage)";
}

std::string nearest(std::string_view word, std::span<const std::string> known) {
  constexpr std::size_t kLongest = 40;  // no name is longer, and the comparison is quadratic
  if (word.size() > kLongest) return {};
  std::string meant(word);
  std::transform(meant.begin(), meant.end(), meant.begin(), lowercased);
  std::string best;
  std::size_t fewest = std::max<std::size_t>(1, word.size() / 3) + 1;
  for (const std::string& name : known) {
    const bool isBeginning = word.size() > 2 && name.starts_with(meant);
    const std::size_t count = isBeginning ? 1 : changes(meant, name);
    if (count < fewest) {
      fewest = count;
      best = name;
    }
  }
  return best;
}

}  // namespace brevant
