// SPDX-License-Identifier: MIT
#include "cli/usage_text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>
#include <sstream>

#include "cli/shell_words.h"
#include "cli/terminal_text.h"
#include "cli/words.h"

namespace brevant {
namespace {

using Trouble = LineWalk::Trouble;

// The parser's own words for the parts of a usage.
constexpr const char* kParts[] = {marked("Usage"), marked("OPTIONS"), marked("REQUIRED"),
                                  marked("Excludes")};
[[maybe_unused]] constexpr const char* kGroups[] = {marked("Options"), marked("Positionals")};

class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() { label("SUBCOMMAND", marked("COMMAND")); }

  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override {
    HelpFormatter inWords;
    for (const char* part : kParts) inWords.label(part, tr(part));
    inWords.label("SUBCOMMAND", tr("COMMAND"));
    return inWords.Formatter::make_help(app, std::move(name), mode);
  }

  std::string make_group(std::string group, bool arePlaces,
                         std::vector<const CLI::Option*> options) const override {
    return Formatter::make_group(tr(group.c_str()), arePlaces, std::move(options));
  }

  std::string make_option(const CLI::Option* option, bool isPlace) const override {
    const std::string name = make_option_name(option, isPlace) + make_option_opts(option);
    return row(name, make_option_desc(option));
  }

  std::string make_option_desc(const CLI::Option* option) const override {
    return tr(option->get_description().c_str());
  }

  std::string make_subcommand(const CLI::App* command) const override {
    return row(command->get_name(), tr(command->get_description().c_str()));
  }

  std::string make_description(const CLI::App* app) const override {
    const std::string text = tr(app->get_description().c_str()) + '\n';
    if (app->get_require_option_max() != 1) return text;
    return text + '[' + tr("Exactly 1 of the following options is required") + "]\n";
  }

  std::string make_subcommands(const CLI::App* app, CLI::AppFormatMode /*mode*/) const override {
    std::string text;
    for (const CLI::App* command : app->get_subcommands(nullptr)) text += make_subcommand(command);
    return text.empty() ? text : '\n' + tr("Commands") + ":\n" + text;
  }

  std::string make_footer(const CLI::App* app) const override {
    const std::string example = tr("Example") + ":\n  " + app->get_footer() + '\n';
    if (app->get_parent() == nullptr) {
      return example + '\n' + tr("Words after -- are no options: %1", "brevant start -- -x") +
             '\n' + tr("%1 tells more about a command.", "brevant help COMMAND") + '\n';
    }
    const std::string text = programOptions(app) + '\n' + example;
    if (app->get_require_subcommand_min() == 0) return text;
    const std::string help = "brevant help " + app->get_name() + " COMMAND";
    return text + '\n' + tr("%1 tells more about a command.", help) + '\n';
  }

 private:
  // The parser's own row counts bytes, as no other language can be counted.
  std::string row(const std::string& name, const std::string& description) const {
    std::ostringstream out;
    const std::size_t hidden = name.size() - displayWidth(name);
    CLI::detail::format_help(out, name, description, get_column_width() + hidden);
    return out.str();
  }

  std::string programOptions(const CLI::App* app) const {
    const CLI::App* program = app->get_parent();
    while (program->get_parent() != nullptr) program = program->get_parent();
    std::vector<const CLI::Option*> options = optionsOf(*program);
    std::erase_if(options, [app](const CLI::Option* option) {
      return app->get_option_no_throw(nameOf(*option)) != nullptr || nameOf(*option) == "--version";
    });
    return make_group(marked("Options of every command"), false, options).substr(1);
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
  return near.empty() ? "" : ": " + tr("did you mean %1?", near);
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
      tr("there is no option %1", shellQuoted(name)) + orNearest(name, optionNames(*walk.command));
  const auto places = placesOf(*walk.command);
  if (walk.words.size() < places.size()) {
    text += "; " + tr("a %1 that begins with a dash stands after --: %2",
                      places[walk.words.size()]->get_name(true),
                      programAnd(walk.path) + " -- " + shellQuoted(word));
  }
  return text;
}

std::string unknownWord(const LineWalk& walk, const std::string& word) {
  const std::vector<std::string> known = commandNames(*walk.command);
  if (known.empty()) {
    return tr("one word too many for %1: %2", walk.path.back(), shellQuoted(word));
  }
  const std::string text = walk.path.empty()
                               ? tr("there is no command %1", shellQuoted(word))
                               : tr("%1 has no command %2", walk.path.back(), shellQuoted(word));
  return text + orNearest(word, known);
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
      return tr("%1 takes no value", word);
    case Trouble::kTwice:
      return tr("%1 is given twice", word);
  }
  return word;
}

std::string parseErrorText(const CLI::ParseError& error) {
  const std::string text = error.what();
  const auto without = [&text](std::string_view end) {
    return text.substr(0, text.size() - end.size());
  };
  constexpr std::string_view kRequired = " is required";
  constexpr std::string_view kExcludes = " excludes ";
  const std::size_t bracket = text.find(']');
  if (text.starts_with("Exactly 1 option from [") && bracket != std::string::npos) {
    return tr("exactly one of %1 is required",
              text.substr(text.find('[') + 1, bracket - text.find('[') - 1));
  }
  if (text.ends_with(kRequired)) return tr("%1 is required", without(kRequired));
  const std::size_t at = text.find(kExcludes);
  if (at == std::string::npos) return text;
  return tr("%1 excludes %2", text.substr(0, at), text.substr(at + kExcludes.size()));
}

std::string withHelpHint(std::string_view what, const LineWalk& walk) {
  return tr("%1 (%2 tells the usage)", what, programAnd(walk.path) + " --help");
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
