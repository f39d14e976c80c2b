// SPDX-License-Identifier: MIT
#include "cli/terminal_text.h"
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class StatusTest : public Cli {
 protected:
  void SetUp() override {
    addCategory("C", "Code", 0x3366AA);
    addActivity("A", "C", 1, "1699996277.5");  // 1:02:02.5 ago
  }
};

TEST_F(StatusTest, CountsTheStretchAndTheWholeTime) {
  addInterval("A", 1699990000, 1699990100.9);
  addActivity("P", "gone", 2, "NULL");
  addInterval("P", 1699990000, 1699990030);
  const Json status = ask({"status"});
  EXPECT_EQ(status["running"], Json::parse(R"([{"guid":"A","categoryGuid":"C","name":"Code",
    "color":3368618,"start":1699996277.5,"elapsed":3722,"total":3822}])"));
  EXPECT_EQ(status["paused"], Json::parse(R"([{"guid":"P","categoryGuid":"gone","name":null,
    "color":null,"start":null,"elapsed":0,"total":30}])"));
}

TEST_F(StatusTest, NeverCountsBackwards) {
  database.run("UPDATE logs SET start_date = 1700000600");
  addInterval("A", 1699990100, 1699990000);
  const Json item = ask({"status"})["running"][0];
  EXPECT_EQ(item["elapsed"], 0);
  EXPECT_EQ(item["total"], 0);
  addInterval("A", 1699990000, 1699990060);
  EXPECT_EQ(ask({"status"})["running"][0]["total"], 60);
  EXPECT_EQ(run({"timeline"}).out, "Code  0:00:00  0:01:00 in all\n");
}

TEST_F(StatusTest, AlignsEveryActivityForPeopleAndObeysNoName) {
  database.run("UPDATE categories SET name = char(27) || '[31m' || char(10) || char(0x202e)");
  addCategory("D", "日本語");
  addActivity("B", "D", 1, "1699999999");
  addActivity("P", "D", 2, "NULL");
  const std::string text = run({"status"}).out;
  EXPECT_EQ(text,
            "●  日本語              0:00:01  0:00:01  in all, since 22:13\n"
            "●  \\x1b[31m\\n\\u{202e}  1:02:02  1:02:02  in all, since 21:11\n"
            "○  日本語               paused  0:00:00  in all\n");
  database.run("DELETE FROM logs");
  EXPECT_NE(run({"status"}).out, "");
}

TEST_F(StatusTest, EscapesNamesAsEachBarNeeds) {
  database.run("UPDATE categories SET name = '<b>\"%{F#f00}&' || char(10) || CAST(x'ff' AS TEXT)");
  const auto bar = [this](const char* name) {
    const std::string line = run({"status", "--format", name}).out;
    EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
    return line;
  };
  const Json waybar = Json::parse(bar("waybar"));
  EXPECT_EQ(waybar["text"], "&lt;b&gt;&quot;%{F#f00}&amp; \uFFFD 1:02:02");
  EXPECT_EQ(waybar["tooltip"], waybar["text"]);
  EXPECT_EQ(waybar["class"], "running");
  const Json i3blocks = Json::parse(bar("i3blocks"));
  EXPECT_EQ(i3blocks["full_text"], "<b>\"%{F#f00}& \uFFFD 1:02:02");
  EXPECT_EQ(i3blocks["short_text"], "1:02:02");
  EXPECT_EQ(i3blocks["color"], "#3366aa");
  EXPECT_EQ(bar("polybar"), "%{F#3366aa}<b>\"%\u200B{F#f00}& \uFFFD 1:02:02%{F-}\n");

  database.run("UPDATE logs SET state = 2, start_date = NULL");
  EXPECT_EQ(Json::parse(bar("waybar"))["class"], "paused");
  database.run("DELETE FROM logs");
  EXPECT_EQ(Json::parse(bar("waybar"))["class"], "idle");
  EXPECT_EQ(bar("polybar"), "\n");
}

TEST_F(StatusTest, WritesALineOfOnesOwnThatStaysOne) {
  database.run("UPDATE categories SET name = '#[x]%{ü}' || char(10, 27) || '[1m'");
  addInterval("A", 1699990000, 1699990060);
  addCategory("D", "Reading");
  addActivity("B", "D", 1, "1699999999");
  addActivity("P", "D", 2, "NULL");
  const auto line = [this](const std::string& format) {
    return run({"status", "--format", format}).out;
  };
  EXPECT_EQ(line("plain"), "Reading 0:00:01 · #[x]%{ü}  [1m 1:02:02\n");
  EXPECT_EQ(line("{count} {state}: {name} {elapsed} {color}"),
            "2 running: Reading 0:00:01 #000000\n");
  EXPECT_EQ(line("{{{name}}} \n"), "{Reading}  \n");
  database.run("DELETE FROM logs WHERE guid = 'B'");
  EXPECT_EQ(line("{name}{elapsed}/{total} {color}"), "#[x]%{ü}  [1m1:02:02/1:03:02 #3366aa\n");
  database.run("DELETE FROM logs WHERE state = 1");
  EXPECT_EQ(line("plain"), "\n");
  EXPECT_EQ(line("{count} {state}: {name} {total}"), "0 paused: Reading 0:00:00\n");
  database.run("DELETE FROM logs");
  EXPECT_EQ(line("{count} {state} {name}{elapsed}{total}{color}"), "0 idle \n");
}

TEST(DisplayWidth, CountsColumnsOfATerminal) {
  const struct {
    const char* text;
    std::size_t columns;
  } cases[] = {{"abc", 3},  {"日本", 4}, {"e\u0301", 1},
               {"한글", 4}, {"😀", 2},    {"\xff\xc0\x80\xed\xa0\x80", 6},
               {"", 0}};
  for (const auto& [text, columns] : cases) EXPECT_EQ(displayWidth(text), columns) << text;
}

}  // namespace
}  // namespace brevant::test
