// SPDX-License-Identifier: MIT
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Scene : public Cli {
 protected:
  void SetUp() override {
    addCategory("C", "Code", 0x3366AA);
    addActivity("A", "C", 1, "1699996277.5");
    addActivity("P", "C", 2, "NULL");
  }

  void startLive(const std::string& color) const {
    ask({"live", "start"}, R"({"guid":"A","typeName":"Code","icon":"cat_2","color":)" + color +
                               R"(,"start":721692800,"message":""})");
  }

  static std::string errorOf(const Json& part) {
    return part.size() == 1 ? part.value("error", "") : "no error: " + part.dump();
  }
};

TEST_F(Scene, IsWhatItsCommandsAnswerAtThatMoment) {
  startLive("1");
  now = "1700000000.5";
  EXPECT_EQ(ask({"scene", "--system-version", "16.1"}),
            (Json{{"now", 1700000000.5},
                  {"status", ask({"status"})},
                  {"timeline", ask({"timeline", "--system-version", "16.1"})},
                  {"live", {ask({"live", "show", "--system-version", "16.1"})}},
                  {"categories", ask({"categories"})}}));
  EXPECT_EQ(ask({"scene", "--system-version", "16.0"})["live"], Json::array());
}

TEST_F(Scene, KeepsEachPartThatCanBeToldWhole) {
  startLive("18446744073709551615");  // more than 32 bits: fatal for who shows it
  startLive("1");
  database.run("UPDATE categories SET name = NULL");  // fatal for the widget
  const Json scene = ask({"scene"});
  EXPECT_EQ(scene["status"], ask({"status"}));
  EXPECT_EQ(scene["categories"], ask({"categories"}));
  EXPECT_TRUE(errorOf(scene["timeline"]).starts_with("Fatal error: ")) << scene["timeline"];
  ASSERT_EQ(scene["live"].size(), 2U);
  EXPECT_TRUE(errorOf(scene["live"][0]).starts_with("Fatal error: ")) << scene["live"][0];
  EXPECT_TRUE(scene["live"][1].contains("lockScreen"));

  write("database.sqlite", "This is no database at all, only text that goes on for a while.");
  write("LiveActivities/activities.json", "{");
  const Json damaged = ask({"scene"});
  EXPECT_NE(errorOf(damaged["status"]).find("could not be read"), std::string::npos);
  EXPECT_NE(errorOf(damaged["live"]).find("is no registry"), std::string::npos);
}

TEST_F(Scene, IsEmptyWhereThereIsNoContainerAndSaysSoOnce) {
  environment["BREVANT_CONTAINER"] = path("none");
  const Outcome outcome = run({"scene"});
  EXPECT_EQ(Json::parse(outcome.out)["status"]["running"], Json::array());
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
}

}  // namespace
}  // namespace brevant::test
