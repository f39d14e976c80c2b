// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brevant {

// What is wrong with a database file, for people to read. Absent and empty: nothing.
struct DatabaseReport {
  std::optional<std::string> unreadable;  // why; nothing else is known then
  std::vector<std::string> missing;       // "logs" for a table, "logs.state" for a column
  std::string journalMode;
  std::optional<std::string> damage;
  std::vector<std::string> slow;  // the statement that makes each index which a query lacks
};

// Looks at the file through a connection that may write, as every other does: what a program that
// was killed left half done is taken back first, and nothing else is changed. Reads all that the
// extension reads.
DatabaseReport checkDatabase(const std::string& path);

}  // namespace brevant
