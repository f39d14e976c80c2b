// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/standard_streams.h"
#include "cli/usage_text.h"
#include "cli/values.h"
#include "cli/words.h"

namespace brevant {
namespace {

using OptionalText = std::optional<std::string>;

// `contract` grows when a key of an answer is taken away or changes its meaning.
constexpr const char* kVersionJson = R"({"version":")" BREVANT_VERSION R"(","contract":1})"
                                     "\n";

// Adds an option or a positional whose text `take` turns into a value; it answers false for a text
// that is none.
CLI::Option* add(CLI::App& app, const std::string& name, const std::string& help,
                 std::function<bool(const std::string&)> take) {
  return app.add_option_function<std::string>(
      name,
      [name, take = std::move(take)](const std::string& text) {
        if (!take(text)) throw CLI::ValidationError(name, tr("not a value: \"%1\"", text));
      },
      help);
}

bool isPositional(const std::string& name) {
  return !name.starts_with('-');
}

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

ExitCode refuseUsage(std::string_view what, const LineWalk& walk) {
  writeMessage(withHelpHint(what, walk));
  return ExitCode::kWrongUsage;
}

ExitCode answer(std::string_view text) {
  if (writeAnswer(text)) return ExitCode::kDone;
  writeMessage(tr("the answer could not be written"));
  return ExitCode::kNotDone;
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
  add(*app_, name, help,
      [value](const std::string& text) {
        *value = text;
        return true;
      })
      ->required()
      ->type_name(isPositional(name) ? "" : "TEXT");
  return value;
}

Value<std::string> Command::path(const std::string& name, const std::string& help) const {
  auto value = std::make_shared<std::string>();
  if (app_ == nullptr) return value;
  add(*app_, name, help,
      [value](const std::string& text) {
        *value = text;
        return !text.empty();
      })
      ->required()
      ->type_name(isPositional(name) ? "" : "FILE");
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
  CLI::Option* option = add(*app_, name, help, [value](const std::string& text) {
    *value = text;
    return true;
  });
  line_->allowOnly(*option->required(), words);
  return value;
}

Value<OptionalText> Command::optionalWord(const std::string& name, const std::string& help,
                                          const std::vector<std::string>& words) const {
  auto value = std::make_shared<OptionalText>();
  if (app_ == nullptr) return value;
  CLI::Option* option = add(*app_, name, help, [value](const std::string& text) {
    *value = text;
    return true;
  });
  line_->allowOnly(*option, words);
  return value;
}

Value<OptionalText> Command::optionalWordOr(const std::string& other, const std::string& name,
                                            const std::string& help,
                                            const std::vector<std::string>& words,
                                            const Problem& problem) const {
  auto value = optionalText(name, help);
  if (app_ == nullptr) return value;
  const auto check = [words, problem](const std::string& text) -> std::string {
    if (std::find(words.begin(), words.end(), text) != words.end()) return "";
    return problem(text).value_or("");
  };
  CLI::Option* option = app_->get_option(name)->check(check, "");
  option->type_name(joined(words, "|") + '|' + other);
  line_->choices_[option] = words;
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

void Command::needsOneOption() const {
  if (app_ != nullptr) app_->require_option(1);
}

void Command::exclude(const std::string& one, const std::string& other) const {
  if (app_ == nullptr) return;
  const auto option = [this](const std::string& name) {
    CLI::Option* own = app_->get_option_no_throw(name);
    return own != nullptr ? own : line_->app_->get_option(name);
  };
  option(one)->excludes(option(other));
}

void Command::run(Action action) const {
  if (app_ == nullptr) return;
  app_->callback([line = line_, action = std::move(action)] { line->action_ = action; });
}

void Command::query(Action action) const {
  if (app_ == nullptr) return;
  app_->callback([line = line_, action = std::move(action)] {
    line->action_ = action;
    line->options_.onlyAsks = true;
  });
}

Command Command::command(const std::string& name, const std::string& summary,
                         const std::string& example) const {
  if (app_ == nullptr) return {nullptr, line_};
  return line_->addCommand(*app_, name, summary, example);
}

CommandLine::CommandLine(std::vector<std::string> arguments)
    : arguments_(std::move(arguments)),
      app_(std::make_unique<CLI::App>(
          marked("See what a personal time tracker is recording, and pause, stop or start it."),
          "brevant")) {
  app_->require_subcommand(0, 1);
  app_->fallthrough();
  app_->formatter(makeHelpFormatter());
  app_->footer("brevant status");
  app_->set_help_flag("-h,--help", "Tell the usage");
  app_->set_version_flag("--version", "brevant " BREVANT_VERSION, "Tell the version");
  addGlobalOptions();
  const LineWalk walk = walkLine(*app_, arguments_);
  namesNoCommand_ = !walk.stray && walk.open == nullptr && !walk.help && !walk.has("--version");
  if (namesNoCommand_) arguments_.emplace_back(kStatusCommand);
}

CommandLine::~CommandLine() = default;

void CommandLine::addGlobalOptions() {
  add(*app_, "--container", marked("The app-group container (default: $BREVANT_CONTAINER)"),
      [this](const std::string& text) {
        options_.container = text;
        return !text.empty();
      })
      ->type_name("DIR");
  add(*app_, "--now", marked("The time, in seconds since 1970; it then stands still"),
      [this](const std::string& text) {
        options_.now = parseSeconds(text);
        return options_.now.has_value();
      })
      ->type_name("SECONDS");
  add(*app_, "--system-version", marked("The system version to act for (default: 17.0)"),
      [this](const std::string& text) {
        options_.systemVersion = text;
        return isVersion(text);
      })
      ->type_name("V");
  CLI::Option* scheme = add(*app_, "--color-scheme", marked("The colours (default: light)"),
                            [this](const std::string& text) {
                              options_.colorScheme =
                                  text == "dark" ? ColorScheme::kDark : ColorScheme::kLight;
                              return true;
                            });
  allowOnly(*scheme, {"light", "dark"});
  app_->add_flag("--ios-app-on-mac", options_.isiOSAppOnMac,
                 marked("Act as a phone application on a Mac"));
  app_->add_flag("--json", options_.json, marked("Answer in JSON"));
}

// They are told once, in the option's own form; the parser would repeat them in its own.
void CommandLine::allowOnly(CLI::Option& option, const std::vector<std::string>& words) {
  const auto check = [words](const std::string& text) -> std::string {
    if (std::find(words.begin(), words.end(), text) != words.end()) return "";
    return tr("%1 is none of %2", '"' + text + '"', joined(words, ", "));
  };
  option.check(check, "")->type_name(joined(words, "|"));
  choices_[&option] = words;
}

std::vector<std::string> CommandLine::choices(const CLI::Option& option) const {
  const auto found = choices_.find(&option);
  return found == choices_.end() ? std::vector<std::string>() : found->second;
}

bool CommandLine::mentions(std::string_view word) const {
  return std::find(arguments_.begin(), arguments_.end(), word) != arguments_.end();
}

Command CommandLine::addCommand(CLI::App& parent, const std::string& name,
                                const std::string& summary, const std::string& example) {
  if (!mentions(name)) {
    unbuilt_.push_back({&parent, name, summary});
    return {nullptr, this};
  }
  CLI::App* app = parent.add_subcommand(name, summary);
  app->footer(example);
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
    group.app_->require_subcommand(1);
  }
  return group;
}

bool CommandLine::hasCommand(std::string_view name) const {
  return mentions(name) ||
         std::any_of(unbuilt_.begin(), unbuilt_.end(), [&](const Unbuilt& command) {
           return command.parent == app_.get() && command.name == name;
         });
}

void CommandLine::listUnbuilt() {
  for (const Unbuilt& command : std::exchange(unbuilt_, {})) {
    command.parent->add_subcommand(command.name, command.summary);
  }
}

LineWalk CommandLine::walk(const std::vector<std::string>& words) {
  listUnbuilt();
  return walkLine(*app_, words);
}

ExitCode CommandLine::refuseGroup(const LineWalk& walk) {
  listUnbuilt();
  return refuseUsage(tr("%1 needs one of its commands: %2", walk.path.back(),
                        joined(commandNames(*walk.command), ", ")),
                     walk);
}

// Help and errors name what there is, so for them everything is listed.
std::optional<ExitCode> CommandLine::parse() {
  const LineWalk walk = walkLine(*app_, arguments_);
  if (walk.stray) {
    listUnbuilt();
    return refuseUsage(strayText(walk), walk);
  }
  if (walk.open != nullptr) return refuseUsage(tr("%1 needs a value", nameOf(*walk.open)), walk);
  if (walk.help) {
    listUnbuilt();
    return answer(helpText(walk));
  }
  if (walk.has("--version")) {
    return answer(walk.has("--json") ? kVersionJson : "brevant " BREVANT_VERSION "\n");
  }
  if (walk.gathers()) return refuseGroup(walk);
  try {
    // The parser takes its arguments from the back.
    std::vector<std::string> words = inOrder(walk);
    std::reverse(words.begin(), words.end());
    app_->parse(std::move(words));
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return refuseUsage(parseErrorText(error), walk);
  }
}

}  // namespace brevant
