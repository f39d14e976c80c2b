// SPDX-License-Identifier: MIT
#include <csignal>
#include <unistd.h>

#include "tests/support/child_program.h"
#include "tests/support/cli.h"
#include "tests/support/notification_daemon.h"

namespace brevant::test {
namespace {

class Reminders : public Cli {
 protected:
  // Every two hours from 22:13:20 on, of which only the hours 0 and 2 are on.
  void SetUp() override {
    writeSettings(
        "<key>notifyEnabled</key><true/><key>notifyMinutes</key><integer>120</integer>"
        "<key>notifyIncludedHours</key><array><integer>1</integer><integer>3</integer></array>");
  }

  void writeSettings(const std::string& settings) const {
    write("Library/Preferences/group.brevant.plist",
          "<plist version=\"1.0\"><dict><key>notifySettings</key><dict>" + settings +
              "</dict></dict></plist>");
  }

  static constexpr const char* kFirstDue = "1700007200";
};

TEST_F(Reminders, TellSettingsTimesAndWhatIsPending) {
  const Json settings = ask({"reminders", "settings"});
  EXPECT_EQ(settings["enabled"], true);
  EXPECT_EQ(settings["minutes"], 120);
  EXPECT_EQ(settings["type"], 0);
  EXPECT_EQ(settings["includeHours"].size(), 24U);
  EXPECT_EQ(settings["includeHours"][2], Json(std::vector<bool>(7, true)));
  EXPECT_EQ(settings["includeHours"][3], Json(std::vector<bool>(7, false)));
  EXPECT_EQ(settings["description"], "Every 2 hours");

  EXPECT_EQ(ask({"reminders", "times"}), Json::array({1700007200.0, 1700014400.0}));
  EXPECT_EQ(ask({"reminders", "schedule"}), Json::object());
  const Json pending = ask({"reminders", "pending"});
  ASSERT_EQ(pending.size(), 2U);
  EXPECT_EQ(pending[0]["identifier"].get<std::string>().substr(0, 7), "remind-");
  EXPECT_EQ(pending[0]["title"], "Remind");
  EXPECT_EQ(pending[0]["body"], "What are you doing now?");
  EXPECT_EQ(pending[0]["userInfo"], (Json{{"type", "notify"}}));
  EXPECT_EQ(pending[0]["sound"], "default");
  EXPECT_EQ(pending[1]["trigger"], Json::parse(R"({"year":2023,"month":11,"day":15,"hour":2,
    "minute":13,"second":20,"repeats":false})"));
  {
    const FileLock lock(database);
    EXPECT_EQ(run({"reminders", "schedule"}).exitCode, 1);
  }
  EXPECT_EQ(ask({"reminders", "pending"}), pending);
  EXPECT_EQ(run({"reminders", "cancel"}).exitCode, 0);
  EXPECT_EQ(ask({"reminders", "pending"}), Json::array());

  writeSettings("<key>notifyMinutes</key><integer>1</integer>");
  EXPECT_EQ(ask({"reminders", "settings"})["description"], "Every 1 minutes");
}

TEST_F(Reminders, SayInOneLineWhatIsWrongWithTheirFile) {
  const std::string file = "Notifications/requests.json";
  const auto expectTold = [&](const char* command, int exitCode) {
    const Outcome outcome = run({"reminders", command});
    EXPECT_EQ(outcome.exitCode, exitCode) << command;
    EXPECT_EQ(outcome.out, "") << command;
    EXPECT_NE(outcome.err.find(path(file)), std::string::npos) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  };
  write(file, "{");
  for (const char* command : {"schedule", "cancel", "deliver", "pending"}) expectTold(command, 1);

  // There is room for the first of the two, and so for none.
  write(file, R"({"requests":[]})");
  addCategory("C", "");
  database.run("UPDATE categories SET name = hex(zeroblob(300000))");
  addActivity("A", "C", 1, "1699999000");
  expectTold("schedule", 1);
  EXPECT_EQ(ask({"reminders", "pending"}), Json::array());
}

TEST_F(Reminders, MakeNoContainerForWhoeverMistypesIt) {
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"schedule"}, {"cancel"}, {"deliver"}, {"deliver", "--watch"}}) {
    std::vector<std::string> words{"--container", path("mistyped"), "reminders"};
    words.insert(words.end(), command.begin(), command.end());
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.exitCode, 1) << command[0];
    EXPECT_NE(outcome.err.find("no container"), std::string::npos) << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(path("mistyped")));
  }
}

TEST_F(Reminders, StayPendingWithoutAService) {
  environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + path("no-bus");
  ask({"reminders", "schedule"});
  EXPECT_EQ(run({"reminders", "deliver"}).exitCode, 0);  // nothing is due
  now = kFirstDue;
  const Outcome outcome = run({"reminders", "deliver"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.err,
            "brevant: no notification service is running; what is due stays pending\n");
  EXPECT_EQ(ask({"reminders", "pending"}).size(), 2U);
}

TEST_F(Reminders, AreShownWithButtonsAndKeptUpToDateByTheWatch) {
  ChildProgram bus({"dbus-daemon", "--session", "--nofork", "--print-address=1"});
  const std::string address = bus.readLine();
  environment["DBUS_SESSION_BUS_ADDRESS"] = address;
  setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
  NotificationDaemon daemon({"actions", "body"});
  addCategory("C", "Code");
  addCategory("R", "Read");
  addActivity("A", "R", 1, "1699998000");
  addActivity("B", "C", 1, "1699999000");
  ask({"reminders", "schedule"});

  now = kFirstDue;
  Process watch(words({"reminders", "deliver", "--watch"}), environment);
  const std::vector<std::string> shown = daemon.waitUntilShown();
  ASSERT_GE(shown.size(), 6U);
  EXPECT_EQ(shown[1], "What are you doing now? Now running: Code");
  EXPECT_EQ((std::vector(shown.begin() + 2, shown.begin() + 10)),
            (std::vector<std::string>{"default", "Open", "pause A", "Pause Read", "stop A",
                                      "Stop Read", "snooze", "Snooze 10 min"}));
  // Until the program knows which notification it is that was shown, it hears of no press.
  const auto pressUntil = [&](const char* button, const auto& isDone) {
    for (int i = 0; i < 300 && !isDone(); ++i) {
      daemon.press(7, button);
      usleep(100'000);
    }
    EXPECT_TRUE(isDone());
  };
  pressUntil("pause A", [&] { return stateOf("A") == "2\n"; });
  const auto pending = [&] { return ask({"reminders", "pending"}); };
  pressUntil("snooze", [&] { return pending().back()["trigger"]["minute"] == 23; });

  // What runs, then what is wanted, is another: so are the reminders, without a word from us.
  const auto waitFor = [&](const auto& isThere) {
    for (int i = 0; i < 300 && !isThere(); ++i) usleep(20'000);
    EXPECT_TRUE(isThere());
  };
  const auto hasBody = [&](const std::string& body) {
    return [&pending, body] {
      const Json all = pending();
      return std::any_of(all.begin(), all.end(),
                         [&](const Json& each) { return each["body"] == body; });
    };
  };
  database.run("UPDATE logs SET state = 0");
  waitFor(hasBody("What are you doing now?"));
  writeSettings(
      "<key>notifyEnabled</key><true/><key>notifyMinutes</key><integer>61</integer>"
      "<key>notifyIncludedHours</key><array><integer>2</integer></array>");
  waitFor([&] { return pending().back()["trigger"]["hour"] == 1; });
  watch.send(SIGTERM);
  EXPECT_EQ(watch.wait().exitCode, 0);
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

}  // namespace
}  // namespace brevant::test
