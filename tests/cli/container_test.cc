// SPDX-License-Identifier: MIT
#include <iterator>
#include <sstream>

#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Containers : public Cli {
 protected:
  // The state that the doctor gives each check.
  std::map<std::string, std::string> checks() const {
    const Outcome outcome = run({"doctor", "--json"});
    std::map<std::string, std::string> states;
    bool problem = false;
    for (const Json& finding : Json::parse(outcome.out)) {
      states[finding["check"]] = finding["state"];
      problem = problem || finding["state"] == "problem";
      EXPECT_EQ(finding["advice"].is_null(), finding["state"] == "ok") << finding;
    }
    EXPECT_EQ(outcome.exitCode, problem ? 1 : 0);
    return states;
  }
};

TEST_F(Containers, MadeAsSamplesAreSoundAndAlive) {
  const std::string sample = path("sample");
  const auto outcomes = runTogether({{"sample", sample}, {"sample", sample}});
  EXPECT_EQ(outcomes[0].exitCode + outcomes[1].exitCode, 1);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(sample), {}), 3);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(sample + "/custom_images"), {}), 1);
  environment["BREVANT_CONTAINER"] = sample;
  EXPECT_EQ(ask({"reminders", "settings"})["enabled"], true);
  auto found = checks();
  found.erase("notifications");  // not of this machine's making
  for (const auto& [check, state] : found) EXPECT_EQ(state, "ok") << check;
  const Json status = ask({"status"});
  EXPECT_EQ(status["running"].size(), 1U);
  EXPECT_GT(status["running"][0]["total"], status["running"][0]["elapsed"]);
  EXPECT_EQ(status["paused"].size(), 1U);
  EXPECT_GT(ask({"categories", "--leaves"}).size(), 10U);
  EXPECT_EQ(run({"pause"}).exitCode, 0);
  EXPECT_EQ(run({"sample", sample}).exitCode, 1);
  EXPECT_EQ(ask({"status"})["paused"].size(), 2U);
}

TEST_F(Containers, ThatAreNoneAreToldAlikeAndNeverMade) {
  write("file", "");
  const std::pair<std::string, std::string> cases[] = {
      {"none", "there is no container at " + path("none")},
      {"file", "the container " + path("file") + " is no directory"}};
  for (const auto& [name, why] : cases) {
    environment["BREVANT_CONTAINER"] = path(name);
    for (const std::string command :
         {"status", "cloud", "stop", "doctor", "live list", "live start"}) {
      std::istringstream text(command);
      const std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
      const Outcome outcome = run(words);
      EXPECT_NE((outcome.out + outcome.err).find(why), std::string::npos) << command << outcome.err;
    }
  }
  EXPECT_FALSE(std::filesystem::exists(path("none")));
}

TEST_F(Containers, WhosePathNeedsEscapesAreMadeWithAWarning) {
  const Outcome outcome = run({"sample", path("my sample")});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_NE(outcome.err.find("percent escapes"), std::string::npos);
  EXPECT_NE(outcome.out.find("/my sample'\n"), std::string::npos) << outcome.out;
}

TEST_F(Containers, ThatAreIllAreTold) {
  addCategory("C", "Code");
  EXPECT_EQ(checks()["database"], "warning");
  EXPECT_NE(run({"doctor", "--json"}).out.find("ON logs (state"), std::string::npos);
  database.run("CREATE INDEX l ON logs (state)");
  EXPECT_EQ(checks()["database"], "ok");
  write("database (conflicted copy).sqlite", "");
  EXPECT_EQ(checks()["place"], "warning");
  write("LiveActivities/activities.json", "{");
  EXPECT_EQ(checks()["live activities"], "problem");
  write("Notifications/requests.json", "{");
  EXPECT_EQ(checks()["reminders"], "problem");
  std::filesystem::create_directory(path("Notifications/delivery.lock"));
  EXPECT_EQ(checks()["locks"], "problem");
  write("home/.cache", "");
  EXPECT_EQ(checks()["icon cache"], "warning");
  database.run("UPDATE categories SET image_guid = '00000000-0000-0000-0000-000000000000'");
  EXPECT_EQ(checks()["icons"], "problem");
  write("Library/Preferences/group.brevant.plist", "<plist>");
  EXPECT_EQ(checks()["settings"], "problem");
  database.run("ALTER TABLE logs DROP COLUMN comment");
  EXPECT_NE(run({"doctor"}).out.find("logs.comment"), std::string::npos);
  write("database.sqlite", "This is no database at all, only text that goes on for a while.");
  EXPECT_EQ(checks()["database"], "problem");
  EXPECT_EQ(checks()["icons"], "warning");
  EXPECT_NE(run({"doctor"}).out.find("it is damaged"), std::string::npos);
  std::filesystem::create_directories(path("with space"));
  environment["BREVANT_CONTAINER"] = path("with space");
  EXPECT_NE(run({"doctor"}).out.find("with%20space/database.sqlite"), std::string::npos);
}

TEST_F(Containers, GiveIconsInAColour) {
  const std::string file = path("icon.png");
  EXPECT_EQ(run({"icon", "cat_7", "--color", "0x336699", "-o", file}).exitCode, 0);
  EXPECT_GT(std::filesystem::file_size(file), 100U);
  EXPECT_EQ(
      run({"icon", "00000000-0000-0000-0000-000000000000", "--color", "1", "-o", file}).exitCode,
      1);
  EXPECT_EQ(run({"icon", "--color", "1", "-o", path("none/icon.png")}).exitCode, 1);

  std::filesystem::create_directory(path("pictures"));
  std::filesystem::create_directory_symlink("pictures", path("custom_images"));
  std::filesystem::create_symlink("../icon.png",
                                  path("pictures/00000000-0000-0000-0000-000000000000.png"));
  EXPECT_EQ(
      run({"icon", "00000000-0000-0000-0000-000000000000", "--color", "1", "-o", path("linked")})
          .exitCode,
      0);
}

TEST_F(Containers, ArePicturedByTheDesktopHost) {
  write("host", "#!/bin/sh\nprintf '%s\\n' \"$@\"; test -x \"$BREVANT\"");
  std::filesystem::permissions(path("host"), std::filesystem::perms::owner_all);
  environment["BREVANT_DESKTOP"] = path("host");
  const Outcome outcome = run({"picture", "medium", "--color-scheme", "dark", "--scale", "3", "-o",
                               "out.png", "--ios-app-on-mac"});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
  for (const std::string words :
       {"--picture\nmedium\n", "-o\nout.png\n", "--scale\n3\n", "--color-scheme\ndark\n",
        "--now\n1700000000\n", "--ios-app-on-mac\n", "--system-version\n17.0\n"}) {
    EXPECT_NE(outcome.out.find(words), std::string::npos) << words;
  }
  EXPECT_NE(outcome.out.find("--container\n" + database.folder.string()), std::string::npos);

  const std::vector<std::string> asked{"picture", "small", "-o", "out.png", "--json"};
  EXPECT_EQ(run(asked).out, "{\"file\":\"out.png\"}\n");
  environment.erase("BREVANT_CONTAINER");
  environment.erase("HOME");
  EXPECT_EQ(run(asked).exitCode, 1);
  environment["BREVANT_CONTAINER"] = database.folder.string();
  for (const auto& [script, code] : {std::pair("exit 2", 2), {"exit 7", 1}, {"kill -9 $$", 1}}) {
    write("host", "#!/bin/sh\n" + std::string(script));
    const Outcome failed = run(asked);
    EXPECT_EQ(failed.exitCode, code) << script;
    EXPECT_EQ(failed.out, "");
  }

  environment["BREVANT_DESKTOP"] = path("none");
  const Outcome without = run({"picture", "medium", "-o", path("out.png")});
  EXPECT_EQ(without.exitCode, 1);
  EXPECT_NE(without.err.find("BREVANT_DESKTOP"), std::string::npos);
}

}  // namespace
}  // namespace brevant::test
