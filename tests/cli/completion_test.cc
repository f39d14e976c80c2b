// SPDX-License-Identifier: MIT
#include "tests/support/cli.h"
#include "tests/support/terminal.h"

namespace brevant::test {
namespace {

struct Shell {
  const char* name;
  std::vector<std::string> command;
  const char* load;  // before and behind the folder of the scripts
  const char* rest;
};

void PrintTo(const Shell& shell, std::ostream* out) {
  *out << shell.name;
}

std::string hex(const std::string& text) {
  std::string digits;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    digits += "0123456789abcdef"[byte >> 4U];
    digits += "0123456789abcdef"[byte & 15U];
  }
  return digits;
}

class Completion : public Cli, public ::testing::WithParamInterface<Shell> {
 protected:
  Completion() {
    const std::string programs = std::filesystem::path(BREVANT_PROGRAM).parent_path();
    environment["PATH"] = programs + ':' + std::getenv("PATH");
    environment["TERM"] = "xterm";
    environment.erase("BREVANT_CONTAINER");
    std::filesystem::create_directories(path("home"));
  }
};

// Whether what is inserted reads back as the name is for the real shell to say.
TEST_P(Completion, InsertsAnyNameAsItIsAndRunsNothing) {
  const std::string trap = path("trap");
  const std::vector<std::string> names{"$(touch " + trap + ")",
                                       "`touch " + trap + "`",
                                       "x;touch " + trap,
                                       "it's \"so\"",
                                       "\"so\" it's",
                                       "a:b:c=d@e",
                                       "-dash",
                                       "two\nlines",
                                       "back\\slash",
                                       "*",
                                       "[z]?{a,b}",
                                       "!bang! #x",
                                       "x<y>|&",
                                       " ümläut ",
                                       "~",
                                       "tab\there"};
  addCategory("C", "x");
  const Terminal shell(GetParam().command, environment, 200);
  const std::string again = "; printf 'do%s\\n' ne\r";
  shell.type(GetParam().load + std::string(BREVANT_COMPLETIONS) + GetParam().rest + again);
  std::string shown = shell.readUntil("done");
  for (const std::string& name : names) {
    database.run("UPDATE categories SET name = CAST(x'" + hex(name) + "' AS TEXT)");
    const bool byGuid = name == "~" || name == "tab\there";
    for (const char* quote : {"", "\"", "'"}) {
      if (byGuid && *quote != '\0') continue;
      shell.type("brevant --container " + database.folder.string() + " start -- " + quote + '\t' +
                 again);
      shown = shell.readUntil("done");
      EXPECT_EQ(database.ask("SELECT count(*) FROM logs"), "1\n") << name << '\n' << shown;
      database.run("DELETE FROM logs");
    }
  }
  EXPECT_FALSE(std::filesystem::exists(trap));
}

TEST_P(Completion, OffersWhatTheCommandTreeHas) {
  addCategory("C", "Code");
  addActivity("A1", "C", 1, "1700000000");
  const std::pair<const char*, const char*> cases[] = {
      {"brevant --versi\t; ", "brevant 0."},
      {"brevant doct\t --he\t; ", "brevant doctor"},
      {"brevant help reminders sche\t; ", "brevant reminders schedule"},
      {"brevant status --format=i3\t; ", "full_text"},
      {"brevant pau\t Co\t; ", "Paused"},
      {"brevant intent StopActivityI\t A1\t st\t --js\t; ", "{}"},
  };
  environment["BREVANT_CONTAINER"] = database.folder.string();
  const Terminal shell(GetParam().command, environment, 200);
  shell.type(GetParam().load + std::string(BREVANT_COMPLETIONS) + GetParam().rest +
             "; printf 'do%s\\n' ne\r");
  shell.readUntil("done");
  for (const auto& [typed, told] : cases) {
    shell.type(std::string(typed) + "printf 'do%s\\n' ne\r");
    const std::string shown = shell.readUntil("done");
    EXPECT_NE(shown.find(told), std::string::npos) << typed << '\n' << shown;
  }
}

INSTANTIATE_TEST_SUITE_P(
    In, Completion,
    ::testing::Values(Shell{"bash", {"bash", "--norc", "--noprofile", "-i"}, ". ", "/brevant.bash"},
                      Shell{"zsh",
                            {"zsh", "-f", "-i"},
                            "autoload -U compinit; fpath=(",
                            " $fpath); compinit -u -D"},
                      Shell{"fish", {"fish", "--no-config", "-i"}, "source ", "/brevant.fish"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brevant::test
