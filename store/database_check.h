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
};

// Looks at the file through a connection that cannot change it.
DatabaseReport checkDatabase(const std::string& path);

}  // namespace brevant
