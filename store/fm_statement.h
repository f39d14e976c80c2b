// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "store/argument.h"

struct sqlite3_stmt;

namespace brevant {

// One prepared statement. It belongs to the cursor that runs it, and to the connection while that
// caches statements; it is finalised with the last of them.
class FMStatement {
 public:
  FMStatement(sqlite3_stmt* handle, std::string_view sql);
  ~FMStatement();
  FMStatement(const FMStatement&) = delete;
  FMStatement& operator=(const FMStatement&) = delete;

  // How many values the statement wants.
  [[nodiscard]] int parameterCount() const;

  // The values of its parameters, in order; as many as it wants. Answers the first error, or
  // SQLITE_OK.
  [[nodiscard]] int bind(std::span<const Argument> arguments);

  // Ends the run. Answers its error, or SQLITE_OK.
  int reset();

  sqlite3_stmt* handle() const { return handle_; }

  const std::string query;
  long useCount = 0;   // how often it was run
  bool inUse = false;  // a cursor is on it

 private:
  sqlite3_stmt* handle_;
};

}  // namespace brevant
