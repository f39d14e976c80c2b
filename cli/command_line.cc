#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <sstream>

#include "cli/values.h"

namespace brevant {
namespace {

using OptionalText = std::optional<std::string>;

// `contract` grows when a key of an answer is taken away or changes its meaning.
constexpr const char* kVersionJson = R"({"version":")" BREVANT_VERSION R"(","contract":1})";

// Adds an option or a positional whose text `take` turns into a value; it answers false for a text
// that is none.
CLI::Option* add(CLI::App& app, const std::string& name, const std::string& help,
                 std::function<bool(const std::string&)> take) {
  return app.add_option_function<std::string>(
      name,
      [name, take = std::move(take)](const std::string& text) {
        if (!take(text)) throw CLI::ValidationError(name, "not a value: \"" + text + '"');
      },
      help);
}

// Required where it is a word in its place; options of that kind say so themselves.
bool isPositional(const std::string& name) {
  return !name.starts_with('-');
}

std::string usageError(std::string_view what) {
  return "brevant: " + std::string(what) + " (brevant --help tells the usage)\n";
}

// An option given an empty value, as by a variable that is not set, in two words: the parser would
// take the next word for the value.
std::vector<std::string> withEmptyValues(const std::vector<std::string>& arguments) {
  std::vector<std::string> words;
  for (const std::string& argument : arguments) {
    if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
      words.push_back(argument.substr(0, argument.size() - 1));
      words.emplace_back();
    } else {
      words.push_back(argument);
    }
  }
  return words;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : "|") + word;
  return text;
}

}  // namespace

Value<bool> Command::flag(const std::string& name, const std::string& help) const {
  auto value = std::make_shared<bool>(false);
  if (app_ != nullptr)
    app_->add_flag_callback(
        name, [value] { *value = true; }, help);
  return value;
}

Value<std::string> Command::text(const std::string& name, const std::string& help) const {
  auto value = std::make_shared<std::string>();
  if (app_ == nullptr) return value;
  add(*app_, name, help, [value](const std::string& text) {
    *value = text;
    return true;
  })->required();
  return value;
}

Value<OptionalText> Command::optionalText(const std::string& name, const std::string& help) const {
  auto value = std::make_shared<OptionalText>();
  if (app_ == nullptr) return value;
  add(*app_, name, help, [value](const std::string& text) {
    *value = text;
    return true;
  })->type_name(isPositional(name) ? "" : "TEXT");
  return value;
}

Value<std::string> Command::word(const std::string& name, const std::string& help,
                                 const std::vector<std::string>& words) const {
  auto value = std::make_shared<std::string>();
  if (app_ == nullptr) return value;
  add(*app_, name, help,
      [value](const std::string& text) {
        *value = text;
        return true;
      })
      ->required()
      ->check(CLI::IsMember(words))
      ->type_name(joined(words));
  return value;
}

Value<OptionalText> Command::optionalWord(const std::string& name, const std::string& help,
                                          const std::vector<std::string>& words) const {
  auto value = std::make_shared<OptionalText>();
  if (app_ == nullptr) return value;
  add(*app_, name, help,
      [value](const std::string& text) {
        *value = text;
        return true;
      })
      ->check(CLI::IsMember(words))
      ->type_name(joined(words));
  return value;
}

Value<std::uint64_t> Command::number(const std::string& name, const std::string& help) const {
  auto value = std::make_shared<std::uint64_t>(0);
  if (app_ == nullptr) return value;
  add(*app_, name, help,
      [value](const std::string& text) {
        const std::optional<std::uint64_t> number = parseUnsigned(text);
        if (number) *value = *number;
        return number.has_value();
      })
      ->required()
      ->type_name("N");
  return value;
}

void Command::allow(Options count) const {
  if (app_ != nullptr) app_->require_option(count == Options::kExactlyOne ? 1 : 0, 1);
}

void Command::run(std::function<ExitCode(Context&)> action) const {
  if (app_ == nullptr) return;
  app_->callback([line = line_, action = std::move(action)] { line->action_ = action; });
}

Command Command::command(const std::string& name, const std::string& summary,
                         const std::string& example) const {
  if (app_ == nullptr) return {nullptr, line_};
  return line_->addCommand(*app_, name, summary, example);
}

CommandLine::CommandLine(std::span<const char* const> arguments)
    : arguments_(arguments.begin(), arguments.end()),
      app_(std::make_unique<CLI::App>(
          "See what a personal time tracker is recording, and pause, stop or start it.",
          "brevant")),
      wantsHelp_(mentions("--help") || mentions("-h")) {
  // None at all is told after the parse, lest it hide the error that names an unknown word.
  app_->require_subcommand(0, 1);
  app_->fallthrough();
  app_->failure_message(
      [](const CLI::App*, const CLI::Error& error) { return usageError(error.what()); });
  app_->footer("Example:\n  brevant status\n\nbrevant COMMAND --help tells more about a command.");
  app_->set_version_flag("--version",
                         mentions("--json") ? kVersionJson : "brevant " BREVANT_VERSION);
  addGlobalOptions();
}

CommandLine::~CommandLine() = default;

void CommandLine::addGlobalOptions() {
  add(*app_, "--container", "The app-group container (default: $BREVANT_CONTAINER)",
      [this](const std::string& text) {
        options_.container = text;
        return !text.empty();
      })
      ->type_name("DIR");
  add(*app_, "--now", "The time, in seconds since 1970; it then stands still",
      [this](const std::string& text) {
        options_.now = parseSeconds(text);
        return options_.now.has_value();
      })
      ->type_name("SECONDS");
  add(*app_, "--system-version", "The system version to act for (default: 17.0)",
      [this](const std::string& text) {
        options_.systemVersion = text;
        return isVersion(text);
      })
      ->type_name("V");
  add(*app_, "--color-scheme", "light (default) or dark", [this](const std::string& text) {
    options_.colorScheme = text == "dark" ? ColorScheme::kDark : ColorScheme::kLight;
    return text == "dark" || text == "light";
  })->type_name("light|dark");
  app_->add_flag("--ios-app-on-mac", options_.isiOSAppOnMac, "Act as a phone application on a Mac");
  app_->add_flag("--json", options_.json, "Answer in JSON");
}

bool CommandLine::mentions(std::string_view word) const {
  return std::find(arguments_.begin(), arguments_.end(), word) != arguments_.end();
}

Command CommandLine::addCommand(CLI::App& parent, const std::string& name,
                                const std::string& summary, const std::string& example) {
  const bool isMeant = mentions(name);
  if (!isMeant && !wantsHelp_) {
    if (&parent == app_.get()) unbuilt_.emplace_back(name, summary);
    return {nullptr, this};
  }
  CLI::App* app = parent.add_subcommand(name, summary);
  if (!isMeant) return {nullptr, this};
  app->footer("Example:\n  " + example);
  return {app, this};
}

Command CommandLine::command(const std::string& name, const std::string& summary,
                             const std::string& example) {
  return addCommand(*app_, name, summary, example);
}

Command CommandLine::group(const std::string& name, const std::string& summary,
                           const std::string& example) {
  const Command group = addCommand(*app_, name, summary, example);
  if (group.app_ != nullptr) {
    group.app_->require_subcommand(0, 1);
    group.app_->footer("Example:\n  " + example + "\n\nbrevant " + name +
                       " COMMAND --help tells more about a command.");
  }
  return group;
}

std::optional<ExitCode> CommandLine::parse() {
  try {
    // Without a command there is help or an error to print, and the help lists them all.
    if (app_->get_subcommands({}).empty()) {
      for (const auto& [name, summary] : unbuilt_) app_->add_subcommand(name, summary);
    }
    // The parser takes its arguments from the back.
    const std::vector<std::string> words = withEmptyValues(arguments_);
    app_->parse(std::vector<std::string>(words.rbegin(), words.rend()));
    if (action_) return std::nullopt;
    std::fputs(usageError("a command is required").c_str(), stderr);
    return ExitCode::kWrongUsage;
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream errors;
    const int code = app_->exit(error, out, errors);
    std::fputs(out.str().c_str(), stdout);
    std::fputs(errors.str().c_str(), stderr);
    return code == 0 ? ExitCode::kDone : ExitCode::kWrongUsage;
  }
}

}  // namespace brevant
