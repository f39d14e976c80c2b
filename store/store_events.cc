// SPDX-License-Identifier: MIT
#include "store/store_events.h"

#include <sqlite3.h>

namespace brevant {
namespace {

using Step = StatementFailure::Step;

std::string error(const StatementFailure& failure) {
  return "(" + std::to_string(failure.code) + ": " + failure.message + ")";
}

std::string updateLine(const StatementFailure& failure) {
  switch (failure.code) {
    case SQLITE_INTERRUPT:
      return "Error calling sqlite3_step. Query was interrupted " + error(failure) +
             " SQLITE_INTERRUPT";
    case SQLITE_ERROR:
      return "Error calling sqlite3_step " + error(failure) + " SQLITE_ERROR";
    case SQLITE_MISUSE:
      return "Error calling sqlite3_step " + error(failure) + " SQLITE_MISUSE";
    default:
      return "Unknown error calling sqlite3_step " + error(failure) + " eu";
  }
}

std::vector<std::string> queryLines(const StatementFailure& failure) {
  if (failure.code == SQLITE_BUSY || failure.code == SQLITE_LOCKED) {
    const std::string place = "next:" + std::to_string(__LINE__);
    return {place + " Database busy (" + failure.path + ")", "Database busy"};
  }
  const bool isKnown = failure.code == SQLITE_ERROR || failure.code == SQLITE_MISUSE;
  return {(isKnown ? "Error" : "Unknown error") + (" calling sqlite3_step " + error(failure)) +
          " rs"};
}

}  // namespace

std::vector<std::string> logLines(const StatementFailure& failure) {
  switch (failure.step) {
    case Step::kOpen:
      return {"error opening!: " + std::to_string(failure.code)};
    case Step::kClosed:
      return {"The FMDatabase " + failure.path + " is not open."};
    case Step::kInUse:
      return {"The FMDatabase " + failure.path + " is currently in use."};
    case Step::kPrepare:
      return {"DB Error: " + std::to_string(failure.code) + " \"" + failure.message + "\"",
              "DB Query: " + failure.sql, "DB Path: " + failure.path};
    case Step::kQueryCount:
      return {"Error: the bind count is not correct for the # of variables (executeQuery)"};
    case Step::kUpdateCount:
      return {"Error: the bind count (" + std::to_string(failure.given) +
              ") is not correct for the # of variables in the query (" +
              std::to_string(failure.wanted) + ") (" + failure.sql + ") (executeUpdate)"};
    case Step::kBind:
      return {"Error: a value could not be bound " + error(failure), "DB Query: " + failure.sql};
    case Step::kQuery:
      return queryLines(failure);
    case Step::kUpdate:
      return {updateLine(failure)};
    case Step::kUnexpectedRow:
      return {"A executeUpdate is being called with a query string '" + failure.sql + "'"};
    case Step::kFinish:
      return {"Unknown error finalizing or resetting statement " + error(failure)};
    case Step::kRowNotWritten:
      return {};  // whoever asked for the change says so
  }
  return {};
}

}  // namespace brevant
