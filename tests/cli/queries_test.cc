// SPDX-License-Identifier: MIT
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

class Queries : public Cli {};

TEST_F(Queries, AnswerRecordsWithEveryKeyAndAllPrecision) {
  database.run(
      "INSERT INTO categories (guid, name, color, order_num, is_group) VALUES "
      "('G', 'Work', 16711680, 1, 1);"
      "INSERT INTO categories (guid, name, image_guid, parent_guid, color, order_num, is_group) "
      "VALUES ('C', 'Code', 'cat_14', 'G', 255, 2, 0)");
  addActivity("A", "C", 1, "1699999000.1234567");
  addInterval("A", 1699990000.25, 1699990060.75);
  addActivity("B", "C", 2, "NULL");

  const Json running = Json::parse(R"({"guid":"A","categoryGuid":"C","state":1,
    "start":1699999000.1234567,"comment":null,"intervals":[{"guid":"I1699990000.250000",
    "from":1699990000.25,"to":1699990060.75,"duration":60}]})");
  const Json paused = Json::parse(R"({"guid":"B","categoryGuid":"C","state":2,"start":null,
    "comment":null,"intervals":[]})");
  EXPECT_EQ(ask({"activities"}), Json::array({running, paused}));
  EXPECT_EQ(ask({"activities", "--running"}), Json::array({running}));

  const Json group = Json::parse(R"({"guid":"G","name":"Work","imageGuid":null,"parentGuid":null,
    "nestingLevel":0,"color":16711680,"order":1,"isGroup":true,"children":["C"]})");
  Json leaf = Json::parse(R"({"guid":"C","name":"Code","imageGuid":"cat_14","parentGuid":"G",
    "nestingLevel":0,"color":255,"order":2,"isGroup":false,"children":null})");
  EXPECT_EQ(ask({"categories"}), Json::array({group, leaf}));
  EXPECT_EQ(ask({"categories", "--roots"}), Json::array({group}));
  EXPECT_EQ(ask({"category", "--id", "G"}), group);
  leaf["nestingLevel"] = 1;  // told by what walks the tree
  EXPECT_EQ(ask({"category", "--name", "cODE"}), leaf);
  EXPECT_EQ(ask({"categories", "--leaves"}), Json::array({leaf}));
}

TEST_F(Queries, AnswerValidJsonWhateverTheDatabaseHolds) {
  database.run(
      "INSERT INTO categories (guid, name, color, is_group) VALUES "
      "(CAST(x'ff41' AS TEXT), CAST(x'c3' || x'22' || x'eda080' AS TEXT), -1, 'x')");
  database.run(
      "INSERT INTO logs (guid, category_guid, state, start_date, comment) VALUES "
      "(NULL, x'00ff', 1, 'soon', char(7, 10))");
  const Json category = ask({"categories"})[0];
  EXPECT_EQ(category["guid"], "\uFFFDA");
  EXPECT_EQ(category["color"], 18446744073709551615U);
  EXPECT_EQ(std::string(category["name"]).find("\uFFFD\""), 0U);
  const Json activity = ask({"activities"})[0];
  EXPECT_EQ(activity["guid"], nullptr);
  EXPECT_EQ(activity["start"], 0.0);
  EXPECT_EQ(activity["comment"], "\a\n");
  EXPECT_EQ(ask({"status"})["running"][0]["name"], nullptr);
}

TEST_F(Queries, WithoutDatabaseAreEmptyAndSayWhatIsMissing) {
  const struct {
    std::string container;
    const char* told;
  } cases[] = {{path("none"), "there is no container at"},
               {path("empty"), "there is no database at"},
               {path("with space"), "percent escapes"}};
  std::filesystem::create_directories(path("empty"));
  std::filesystem::create_directories(path("with space"));
  std::filesystem::copy(database.path, path("with space") + "/database.sqlite");
  for (const auto& [container, told] : cases) {
    for (const char* command : {"activities", "categories"}) {
      const Outcome outcome = run({command, "--json", "--container", container});
      EXPECT_EQ(outcome.exitCode, 0) << container;
      EXPECT_EQ(outcome.out, "[]\n");
      EXPECT_NE(outcome.err.find(told), std::string::npos) << outcome.err;
      EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
    EXPECT_EQ(run({"stop", "--container", container}).exitCode, 1);
  }
  const std::vector<std::vector<std::string>> withoutDatabase{{"reminders", "pending", "--json"},
                                                              {"live", "list", "--json"},
                                                              {"cloud", "--json"},
                                                              {"reminders", "cancel"},
                                                              {"reminders", "deliver"}};
  for (std::vector<std::string> command : withoutDatabase) {
    const bool isQuery = command.back() == "--json";
    command.insert(command.end(), {"--container", path("none")});
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.exitCode, isQuery ? 0 : 1) << command[1];
    EXPECT_EQ(outcome.out, isQuery ? "[]\n" : "") << command[1];
    EXPECT_EQ(outcome.err, "brevant: there is no container at " + path("none") +
                               " (brevant sample DIR makes one to try)\n");
    EXPECT_EQ(run({command[0], command[1], "--container", path("empty")}).err, "") << command[1];
  }
  EXPECT_FALSE(std::filesystem::exists(path("none")));
  EXPECT_TRUE(std::filesystem::is_empty(path("empty")));
}

TEST_F(Queries, TellALockedDatabaseFromAnEmptyOne) {
  const FileLock lock(database);
  for (const Outcome& outcome : runTogether(
           {{"activities", "--json"}, {"status"}, {"category", "--id", "C"}, {"timeline"}})) {
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.ends_with(
        "brevant: the database could not be read: the database stayed locked\n"))
        << outcome.err;
  }
}

TEST_F(Queries, NameAGlobalOptionBeforeOrAfterTheCommand) {
  addCategory("C", "Code");
  environment.erase("BREVANT_CONTAINER");
  const std::string container = database.folder.string();
  EXPECT_EQ(run({"--container", container, "categories"}).out,
            run({"categories", "--container", container}).out);
  environment["XDG_DATA_HOME"] = path("data");
  std::filesystem::create_directories(path("data"));
  std::filesystem::create_directory_symlink(container, path("data/group.brevant"));
  EXPECT_EQ(ask({"categories"}).size(), 1U);
}

}  // namespace
}  // namespace brevant::test
