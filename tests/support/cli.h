// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <nlohmann/json.hpp>

#include "tests/support/database.h"
#include "tests/support/process.h"

namespace brevant::test {

// Runs the program on a container of its own, in UTC and English, at 2023-11-14 22:13:20. Nothing
// of the user's is read or written.
class Cli : public ::testing::Test {
 protected:
  using Json = nlohmann::json;

  static constexpr const char* kNow = "1700000000";

  std::vector<std::string> words(const std::vector<std::string>& arguments) const {
    std::vector<std::string> result{BREVANT_PROGRAM};
    result.insert(result.end(), arguments.begin(), arguments.end());
    result.insert(result.begin() + 1, {"--now", now});
    return result;
  }

  Outcome run(const std::vector<std::string>& arguments, const std::string& input = {}) const {
    return Process(words(arguments), environment, input).wait();
  }

  // All at the same time: for commands that wait.
  std::vector<Outcome> runTogether(const std::vector<std::vector<std::string>>& commands) const {
    std::vector<std::unique_ptr<Process>> processes;
    for (const auto& command : commands) {
      processes.push_back(std::make_unique<Process>(words(command), environment));
    }
    std::vector<Outcome> outcomes;
    for (const auto& process : processes) outcomes.push_back(process->wait());
    return outcomes;
  }

  // The answer of a command that must succeed.
  Json ask(std::vector<std::string> arguments, const std::string& input = {}) const {
    arguments.emplace_back("--json");
    const Outcome outcome = run(arguments, input);
    EXPECT_EQ(outcome.exitCode, 0) << arguments[0] << ": " << outcome.err;
    Json answer = Json::parse(outcome.out, nullptr, false);
    EXPECT_FALSE(answer.is_discarded()) << arguments[0] << ": " << outcome.out;
    return answer;
  }

  std::string path(const std::string& name) const { return (database.folder / name).string(); }

  void write(const std::string& name, const std::string& contents) const {
    database.files.write(name, contents);
  }

  void addCategory(const std::string& guid, const std::string& name, int color = 0) const {
    database.run("INSERT INTO categories (guid, name, color, image_guid, is_group) VALUES ('" +
                 guid + "', '" + name + "', " + std::to_string(color) + ", 'cat_2', 0)");
  }

  // `start` is an SQL expression, e.g. NULL.
  void addActivity(const std::string& guid, const std::string& category, int state,
                   const std::string& start) const {
    database.run("INSERT INTO logs (guid, category_guid, state, start_date) VALUES ('" + guid +
                 "', '" + category + "', " + std::to_string(state) + ", " + start + ")");
  }

  void addInterval(const std::string& activity, double from, double to) const {
    database.run("INSERT INTO time_intervals (guid, log_guid, start, finish) VALUES ('I" +
                 std::to_string(from) + "', '" + activity + "', " + std::to_string(from) + ", " +
                 std::to_string(to) + ")");
  }

  std::string stateOf(const std::string& guid) const {
    return database.ask("SELECT state FROM logs WHERE guid = '" + guid + "'");
  }

  TestDatabase database;
  std::string now = kNow;
  Process::Environment environment{{"BREVANT_CONTAINER", database.folder.string()},
                                   {"HOME", path("home")},
                                   {"TZ", "UTC"},
                                   {"LC_ALL", "C.UTF-8"}};
};

}  // namespace brevant::test
