// SPDX-License-Identifier: MIT
#include <csignal>

#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Widget : public Cli {
 protected:
  void SetUp() override {
    addCategory("C", "Code", 0x3366AA);
    addActivity("A", "C", 1, "1699999000.5");
    addActivity("B", "C", 1, "1699999500");
    addInterval("A", 1699990000, 1699990060);
  }

  static constexpr const char* kState =
      R"({"guid":"B","typeName":"Code","icon":"","color":1,"start":721692800,"message":""})";
};

TEST_F(Widget, TimelineHasTheEntryAndItsViews) {
  Json timeline = ask({"timeline"});
  Json& entry = timeline["entries"][0];
  EXPECT_EQ(entry["icon"]["png"].get<std::string>().substr(0, 8), "iVBORw0K");
  EXPECT_EQ(entry["views"].size(), 2U);
  entry.erase("icon");
  entry.erase("views");
  EXPECT_EQ(timeline, Json::parse(R"({"kind":"running_widget","policy":"atEnd","entries":[
    {"guid":"A","date":1700000000,"name":"Code","start":1699999000.5,"duration":60}]})"));
  const auto medium = [this](const std::string& option, const std::string& value) {
    return ask({"timeline", option, value})["entries"][0]["views"]["systemMedium"].dump();
  };
  EXPECT_NE(medium("--system-version", "16.0").find("action=pause&activity=A"), std::string::npos);
  EXPECT_NE(medium("--color-scheme", "dark"), medium("--color-scheme", "light"));
}

TEST_F(Widget, AnswersNullEmptyOrTheSampleWhereNothingCanBeShown) {
  EXPECT_EQ(ask({"snapshot"})["name"], "Sleep");
  EXPECT_EQ(ask({"placeholder"})["guid"], "a");
  database.run("DELETE FROM categories");
  EXPECT_EQ(run({"timeline", "--json"}).out, "null\n");
  database.run("DELETE FROM logs");
  EXPECT_EQ(ask({"timeline"})["entries"][0]["guid"], "");
}

TEST_F(Widget, IntentsPerformAndWaitForTheirTasks) {
  EXPECT_EQ(ask({"intent", "StopActivityIntent", "A", "pause"}), Json::object());
  EXPECT_EQ(stateOf("A"), "2\n");
  EXPECT_EQ(ask({"intent", "StopActivityIntent", "A", "Stop"}), Json::object());
  EXPECT_EQ(ask({"intent", "StopActivityIntent", "unknown", "stop"}), Json::object());
  EXPECT_EQ(stateOf("A"), "2\n");

  ask({"live", "start"}, kState);
  EXPECT_EQ(ask({"intent", "StopActivityLiveIntent", "B", "stop", "--ios-app-on-mac"}),
            Json::object());
  EXPECT_EQ(stateOf("B"), "0\n");
  EXPECT_EQ(ask({"live", "list"}), Json::array());
  EXPECT_EQ(ask({"live", "list", "--all"})[0]["contentState"]["message"], "stop");
  const Json records = ask({"cloud"});
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0]["recordType"], "WidgetUpdate");
  EXPECT_EQ(records[0]["fields"], (Json{{"deviceGuid", ""}}));
}

TEST_F(Widget, BundleFollowsTheSystemVersion) {
  const Json home{{"kind", "running_widget"},
                  {"displayName", "Runnning activity"},
                  {"description", "Displays most recent started activity"},
                  {"families", {"systemSmall", "systemMedium"}}};
  const Json live{
      {"kind", "LiveActivityWidget"}, {"displayName", {}}, {"description", {}}, {"families", {}}};
  EXPECT_EQ(ask({"widgets", "--system-version", "16.0"}), Json::array({home}));
  EXPECT_EQ(ask({"widgets", "--system-version", "16.1"}), Json::array({home, live}));
  environment["LC_ALL"] = "de_DE.UTF-8";
  EXPECT_NE(run({"widgets"}).out.find("Runnning activity"), std::string::npos);
}

class LiveActivities : public Cli {
 protected:
  static constexpr const char* kState =
      R"({"guid":"A","typeName":"Code","icon":"cat_2","color":18446744073709551615,)"
      R"("start":700000000.25,"message":"<&>"})";
};

TEST_F(LiveActivities, KeepTheirContentOnTheWayThrough) {
  EXPECT_EQ(run({"live", "decode"}, kState).out, std::string(kState) + '\n');
  const std::string id = ask({"live", "start"}, kState)["id"];
  const std::string second = run({"live", "start"}, kState).out;
  const Json listed = ask({"live", "list"});
  ASSERT_EQ(listed.size(), 2U);
  EXPECT_EQ(listed[0],
            (Json{{"id", id}, {"state", "active"}, {"contentState", Json::parse(kState)}}));
  EXPECT_EQ(listed[1]["id"].get<std::string>() + '\n', second);

  Json changed = Json::parse(kState);
  changed["color"] = 0x3366AA;
  changed["message"] = "pause";
  EXPECT_EQ(run({"live", "update", id}, changed.dump()).exitCode, 0);
  const Json shown = ask({"live", "show"});
  EXPECT_EQ(shown["id"], id);
  EXPECT_EQ(shown["kind"], "LiveActivityWidget");
  EXPECT_EQ(shown["contentState"], changed);
  EXPECT_TRUE(shown["lockScreen"].contains("view"));
  for (const char* place : {"compactLeading", "compactTrailing", "minimal", "expanded/leading",
                            "expanded/trailing", "expanded/bottom"}) {
    const Json::json_pointer view(std::string("/dynamicIsland/") + place + "/view");
    EXPECT_TRUE(shown.contains(view)) << place;
  }

  EXPECT_EQ(run({"live", "end", id}).exitCode, 0);
  EXPECT_EQ(ask({"live", "list"}).size(), 1U);
  EXPECT_EQ(ask({"live", "list", "--all"})[0],
            (Json{{"id", id}, {"state", "ended"}, {"contentState", changed}}));
  EXPECT_EQ(run({"live", "end", id}).exitCode, 1);
  EXPECT_EQ(run({"live", "update", id}, kState).exitCode, 1);
  EXPECT_EQ(run({"live", "show", id}).exitCode, 1);
}

TEST_F(LiveActivities, StartWithTheContentOfARunningActivity) {
  addCategory("C", "It,s \"\"so\"\"", 0x3366AA);
  addActivity("A", "C", 1, "1699999000.5");
  addActivity("B", "C", 2, "NULL");
  addActivity("N", "none", 1, "1699999000.5");
  const std::string id = ask({"live", "start", "--activity", "A"})["id"];
  const Json listed = ask({"live", "list"});
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0]["id"], id);
  EXPECT_EQ(listed[0]["contentState"], (Json{{"guid", "A"},
                                             {"typeName", "It,s \"\"so\"\""},
                                             {"icon", "cat_2"},
                                             {"color", 0x3366AA},
                                             {"start", 721691800.5},
                                             {"message", ""}}));
  for (const char* guid : {"B", "N", "unknown", ""}) {
    EXPECT_EQ(run({"live", "start", "--activity", guid}).exitCode, 1) << guid;
  }
  EXPECT_EQ(ask({"live", "list"}).size(), 1U);
}

TEST_F(LiveActivities, RefuseWhatDoesNotDecodeOrFit) {
  const auto withMessage = [](const std::string& message) {
    return std::string(kState).replace(std::string(kState).find("<&>"), 3, message);
  };
  const std::pair<std::string, const char*> cases[] = {
      {"", ""}, {R"({"guid":"A","typeName":1})", "typeName"}, {withMessage("\xff"), ""}};
  for (const auto& [input, told] : cases) {
    for (const char* command : {"decode", "start"}) {
      const Outcome outcome = run({"live", command}, input);
      EXPECT_EQ(outcome.exitCode, 1) << input;
      EXPECT_EQ(outcome.out, "");
      EXPECT_NE(outcome.err.find(told), std::string::npos) << outcome.err;
    }
  }
  const std::string large = withMessage(std::string(4096, 'x'));
  EXPECT_EQ(run({"live", "start"}, large).exitCode, 1);
  EXPECT_EQ(ask({"live", "list", "--all"}), Json::array());
  const std::string id = ask({"live", "start"}, kState)["id"];
  EXPECT_EQ(run({"live", "update", id}, large).exitCode, 1);
  EXPECT_EQ(ask({"live", "list"})[0]["contentState"], Json::parse(kState));

  EXPECT_EQ(run({"live", "show", "--system-version", "16.0"}).exitCode, 1);
  const Outcome beyond32Bits = run({"live", "show", "--json"});  // its colour
  EXPECT_EQ(beyond32Bits.signal, SIGABRT);
  EXPECT_EQ(beyond32Bits.out, "");
  EXPECT_TRUE(beyond32Bits.err.starts_with("Fatal error: ")) << beyond32Bits.err;
}

TEST_F(LiveActivities, SurviveContentOfAnyDepth) {
  for (const std::size_t half : {2048U, 1'000'000U}) {  // the most there can be, and far beyond
    const std::string content = std::string(half, '[') + std::string(half, ']');
    const Json entry{{"id", "deep"}, {"contentState", content}, {"ended", nullptr}};
    write("LiveActivities/activities.json", Json{{"activities", Json::array({entry})}}.dump());
    EXPECT_EQ(run({"live", "list"}).exitCode, half == 2048 ? 0 : 1);
  }
}

TEST_F(LiveActivities, AreNeverTakenForNoneWhereTheyCannotBeRead) {
  const std::string file = "LiveActivities/activities.json";
  const auto allTell = [&](const std::string& why) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"list"}, {"list", "--all"}, {"show"}, {"end", "A"}, {"update", "A"}, {"start"}}) {
      std::vector<std::string> command{"live"};
      command.insert(command.end(), words.begin(), words.end());
      const Outcome outcome = run(command, kState);
      EXPECT_EQ(outcome.exitCode, 1) << words[0];
      EXPECT_EQ(outcome.out, "");
      EXPECT_EQ(outcome.err, "brevant: " + path(file) + why) << words[0];
    }
  };
  write(file, "{");
  allTell(": is no registry of Live Activities\n");
  std::filesystem::remove(path(file));
  std::filesystem::create_directory(path(file));
  allTell(": cannot be read\n");
}

}  // namespace
}  // namespace brevant::test
