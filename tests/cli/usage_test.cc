#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Usage : public Cli {};

TEST_F(Usage, OfTheWrongKindEndsWithTwo) {
  addCategory("C", "Code");
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {},
           {"unknown"},
           {"--unknown", "status"},
           {"status", "extra"},
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

TEST_F(Usage, NamesTheWordThatIsWrong) {
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"wrong"}, {"--wrong", "status"}, {"live", "wrong"}, {"--json", "reminders", "wrong"}}) {
    EXPECT_NE(run(command).err.find("wrong"), std::string::npos);
  }
  EXPECT_EQ(run({"category", "--name=", "--json"}).err, "brevant: there is no category \n");
}

TEST_F(Usage, HelpOfEveryCommandHasAnExample) {
  std::vector<std::vector<std::string>> commands{{}, {"live"}, {"reminders"}};
  for (const char* name : {"activities", "categories", "category", "status", "start", "stop",
                           "pause", "resume", "widgets", "timeline", "snapshot", "placeholder",
                           "intent", "icon", "picture", "open", "cloud", "doctor", "sample"}) {
    commands.push_back({name});
  }
  for (const char* name : {"start", "list", "update", "end", "show", "decode"}) {
    commands.push_back({"live", name});
  }
  for (const char* name : {"settings", "times", "schedule", "cancel", "pending", "deliver"}) {
    commands.push_back({"reminders", name});
  }
  for (std::vector<std::string> command : commands) {
    command.emplace_back("--help");
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.exitCode, 0) << command[0];
    EXPECT_NE(outcome.out.find("Example:\n  brevant"), std::string::npos) << command[0];
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(Usage, AnAnswerThatCannotBeWrittenIsNotDone) {
  const std::string command = std::string(BREVANT_PROGRAM) + " widgets > /dev/full";
  const Outcome outcome = Process({"/bin/sh", "-c", command}, environment).wait();
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_NE(outcome.err.find("could not be written"), std::string::npos);
}

}  // namespace
}  // namespace brevant::test
