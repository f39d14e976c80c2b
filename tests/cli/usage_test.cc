// SPDX-License-Identifier: MIT
#include <sstream>

#include "cli/terminal_text.h"
#include "tests/support/cli.h"
#include "tests/support/terminal.h"

namespace brevant::test {
namespace {

class Usage : public Cli {
 protected:
  // The commands behind those words, as completions are told of them.
  std::vector<std::string> namesBehind(const std::vector<std::string>& command) const {
    std::vector<std::string> asking{BREVANT_PROGRAM, "complete", "zsh"};
    asking.insert(asking.end(), command.begin(), command.end());
    asking.emplace_back("");
    std::istringstream answer(Process(asking, environment).wait().out);
    std::vector<std::string> names;
    std::string name;
    std::string description;
    std::getline(answer, name, '\0');  // the kind
    while (std::getline(answer, name, '\0') && std::getline(answer, description, '\0')) {
      const bool isCommand = std::isalpha(name.front()) != 0 && !description.empty();
      if (isCommand) names.push_back(name);
    }
    return names;
  }
};

TEST_F(Usage, OfTheWrongKindEndsWithTwo) {
  addCategory("C", "Code");
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"status", "extra"},
           {"--help", "extra"},
           {"help", "extra"},
           {"--json=3", "status"},
           {"status", "--format", "i3bar"},
           {"status", "--now"},
           {"status", "--system-version", "seventeen"},
           {"status", "--system-version", "17."},
           {"status", "--color-scheme", "Dark"},
           {"status", "--container", ""},
           {"--container=", "status"},
           {"categories", "--roots", "--leaves"},
           {"category"},
           {"category", "--id", "C", "--name", "Code"},
           {"start"},
           {"stop", "A", "B"},
           {"intent", "StopActivity", "A", "stop"},
           {"intent", "StopActivityIntent", "A"},
           {"live"},
           {"live", "pause"},
           {"reminders", "unknown"},
           {"icon", "--color", "-1", "-o", path("i.png")},
           {"icon", "--color", "red", "-o", path("i.png")},
           {"icon", "--color", "18446744073709551616", "-o", path("i.png")},
           {"icon", "--color", "1"},
           {"icon", "-o", path("i.png")},
           {"icon", "--color", "1", "-o", ""},
           {"picture", "small", "-o", ""},
           {"sample", ""},
           {"status", "--json", "--format", "polybar"},
           {"status", "--format", ""},
           {"status", "--format", "{name} {end}"},
           {"status", "--format", "{name"},
           {"status", "--format", "{name}}"},
           {"status", "--format", "{{name}"},
           {"picture", "large", "-o", path("p.png")},
           {"picture", "small", "-o", path("p.png"), "--scale", "4"},
       }) {
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.exitCode, 2) << ::testing::PrintToString(command);
    EXPECT_EQ(outcome.out, "") << ::testing::PrintToString(command);
    EXPECT_TRUE(outcome.err.starts_with("brevant: ")) << outcome.err;
  }
  for (const char* wrong : {"abc", "", "1e999", "nan", "12 ", "0x10"}) {
    now = wrong;
    EXPECT_EQ(run({"status"}).exitCode, 2) << wrong;
  }
  now = "-1.5";
  EXPECT_EQ(run({"status"}).exitCode, 0);
}

TEST_F(Usage, TellsTheVersionToPeopleAndToPrograms) {
  const Json version = ask({"--version"});
  EXPECT_EQ(version.at("contract"), 1);
  EXPECT_EQ(run({"--version"}).out, "brevant " + version.at("version").get<std::string>() + "\n");
}

TEST_F(Usage, NamesTheFirstWrongWordAndTheNearestRightOne) {
  const struct {
    std::vector<std::string> command;
    const char* told;
  } cases[] = {
      {{"statsu", "and", "more"}, "there is no command statsu: did you mean status?"},
      {{"--jsno", "status", "x"}, "there is no option --jsno: did you mean --json?"},
      {{"categories", "--leafs=1"}, "there is no option --leafs: did you mean --leaves?"},
      {{"--json", "live", "lsit"}, "live has no command lsit: did you mean list?"},
      {{"QQqqqq\x1b\n"}, "there is no command $'QQqqqq\\x1b\\n' ("},
      {{"STATUS"}, "did you mean status?"},
      {{"status", "--now", "1", "--now=2"}, "--now is given twice"},
      {{"reminders"}, "settings, times, schedule"},
      {{"status", "--now"}, "--now needs a value"},
      {{"start", "-x y"}, "stands after --: brevant start -- '-x y'"},
  };
  for (const auto& [command, told] : cases) {
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.exitCode, 2) << told;
    EXPECT_NE(outcome.err.find(told), std::string::npos) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  }
  EXPECT_EQ(run({"category", "--name=", "--json"}).err, "brevant: there is no category \n");
}

TEST_F(Usage, TakesWordsAsTheyAreAfterTwoDashes) {
  for (const char* name : {"-x", "++", "--x=", "--help", "start", "--"}) {
    addCategory(name, name);
    EXPECT_EQ(run({"start", "--json", "--", name}).exitCode, 0) << name;
  }
  EXPECT_EQ(run({"start", "++"}).exitCode, 0);
  EXPECT_EQ(database.ask("SELECT count(DISTINCT category_guid) FROM logs"), "6\n");
}

TEST_F(Usage, TablesFitTheTerminalAndLoseNothing) {
  const std::string guid = "0A0B0C0D-1111-2222-3333-444455556666";
  addCategory("C", "a name of many words, far longer than any line of the terminal is wide");
  addActivity(guid, "C", 1, "1699999000");
  for (const char* command : {"activities", "status", "doctor", "categories"}) {
    for (const std::uint16_t columns : std::initializer_list<std::uint16_t>{40, 80}) {
      std::string shown = Terminal(words({command}), environment, columns).readAll();
      EXPECT_EQ(shown.find(guid) != std::string::npos, command == std::string("activities"));
      std::istringstream lines(shown);
      for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        EXPECT_LE(displayWidth(line), columns) << shown;
      }
    }
  }
}

TEST_F(Usage, WithoutCommandIsTheStatusAndWhatToDoNext) {
  addCategory("C", "Code");
  addActivity("A", "C", 1, "1699999000");
  EXPECT_TRUE(run({}).out.starts_with(run({"status"}).out));
  EXPECT_EQ(ask({}), ask({"status"}));
  const Outcome outcome = run({"--container", path("none")});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_NE(outcome.out.find("brevant sample DIR"), std::string::npos);
  EXPECT_NE(outcome.out.find("brevant doctor"), std::string::npos);
}

TEST_F(Usage, HelpOfEveryCommandHasAnExampleAndTheOptionsOfAll) {
  std::vector<std::vector<std::string>> commands{{}};
  for (std::size_t i = 0; i < commands.size(); ++i) {
    for (const std::string& name : namesBehind(commands[i])) {
      if (name == "help") continue;
      commands.push_back(commands[i]);
      commands.back().push_back(name);
    }
    std::vector<std::string> asking = commands[i];
    asking.emplace_back("--help");
    const Outcome outcome = run(asking);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("Example:\n  brevant"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("--container DIR"), std::string::npos) << outcome.out;
  }
  EXPECT_GE(commands.size(), 34U);
  const std::string help = run({"help", "status"}).out;
  EXPECT_EQ(help, run({"status", "--help"}).out);
  EXPECT_EQ(help.find("waybar|"), help.rfind("waybar|"));  // told once
}

TEST_F(Usage, AnAnswerThatCannotBeWrittenIsNotDone) {
  addCategory("C", "Code");
  const std::pair<const char*, bool> commands[] = {
      {"widgets", false}, {"--help", false}, {"--version", false}, {"start Code", true}};
  for (const auto& [command, changes] : commands) {
    for (const char* nowhere : {"> /dev/full", ">&-"}) {
      const std::string line = std::string(BREVANT_PROGRAM) + ' ' + command + ' ' + nowhere;
      const Outcome outcome = Process({"/bin/sh", "-c", line}, environment).wait();
      EXPECT_EQ(outcome.exitCode, 1) << line;
      EXPECT_NE(outcome.err.find("could not be written"), std::string::npos) << line;
      EXPECT_EQ(outcome.err.find("it is done, but") != std::string::npos, changes) << line;
    }
  }
}

}  // namespace
}  // namespace brevant::test
