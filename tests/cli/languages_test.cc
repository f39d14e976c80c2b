// SPDX-License-Identifier: MIT
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Languages : public Cli {
 protected:
  void speak(const std::string& language) { environment["LC_ALL"] = language; }

  // Cloud records that cannot be read, all but one of which are only counted.
  void breakRecords(int count) const {
    for (int i = 0; i <= count; ++i) {
      write("Cloud/iCloud.brevant/private/WidgetUpdate/" + std::to_string(i) + ".json", "x");
    }
  }

  static bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
};

TEST_F(Languages, AreThoseOfTheEnvironmentDownToTheirPlurals) {
  const struct {
    const char* language;
    int count;
    const char* counted;
  } cases[] = {
      {"de_AT.UTF-8", 1, "und 1 weiterer\n"},
      {"de_AT.UTF-8", 2, "und 2 weitere\n"},
      {"ru_RU.UTF-8", 1, "и ещё 1 запись\n"},
      {"ru_RU.UTF-8", 2, "и ещё 2 записи\n"},
      {"ru_RU.UTF-8", 5, "и ещё 5 записей\n"},
      {"ar", 2, "واثنان آخران\n"},
      {"ar", 5, "و5 أخرى\n"},
      {"he", 5, "and 5 more\n"},
  };
  for (const auto& [language, count, counted] : cases) {
    speak(language);
    std::filesystem::remove_all(path("Cloud"));
    breakRecords(count);
    const std::string said = run({"cloud"}).err;
    EXPECT_TRUE(said.starts_with("brevant: ") && said.ends_with(counted)) << said;
  }
}

TEST_F(Languages, TranslateAnswersRefusalsAndUsage) {
  addCategory("C", "%2 %%");
  addActivity("A", "C", 1, "1699999000");
  speak("de_DE.UTF-8");
  EXPECT_EQ(run({"status"}).out, "●  %2 %%  0:16:40  0:16:40  insgesamt, seit 21:56\n");
  EXPECT_EQ(run({"pause"}).out, "%2 %% pausiert nach 0:16:40\n");
  EXPECT_EQ(run({"stop", "B"}).err,
            "brevant: nichts wurde geändert: es gibt keine laufende oder pausierte Aktivität B\n");
  EXPECT_EQ(run({"start"}).err,
            "brevant: CATEGORY ist nötig (brevant start --help sagt, wie es geht)\n");
  EXPECT_EQ(run({"live", "end", "L"}).err, "brevant: es gibt keine laufende Live-Aktivität L\n");
  const std::string help = run({"start", "--help"}).out;
  EXPECT_TRUE(holds(help, "GUID oder Name einer Kategorie")) << help;
  EXPECT_TRUE(holds(help, "\nBeispiel:\n  brevant start Reading\n")) << help;
  speak("ru_RU.UTF-8");
  EXPECT_TRUE(holds(run({"status"}).out, "на паузе"));
  speak("ar");
  EXPECT_TRUE(holds(run({"status"}).out, "متوقف مؤقتًا"));
}

TEST_F(Languages, NeverReachWhatProgramsRead) {
  addCategory("C", "Code");
  addActivity("A", "C", 0, "1699999000");
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"doctor", "--json"},
                                             {"status", "--json"},
                                             {"status", "--format", "{state}"},
                                             {"status", "--format", "waybar"}}) {
    speak("C.UTF-8");
    const std::string english = run(command).out;
    speak("ru_RU.UTF-8");
    EXPECT_EQ(run(command).out, english);
  }
  database.run("DROP TABLE categories");
  EXPECT_TRUE(holds(run({"scene"}).out, "the database could not be read"));
}

}  // namespace
}  // namespace brevant::test
