// SPDX-License-Identifier: MIT

// What the store tells of itself. Its operations answer nothing to their callers; whoever has to
// say what became of a change listens to these events, and the log lines are made of them too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/date.h"

namespace brevant {

// A connection or a statement did not do what was asked of it.
struct StatementFailure {
  enum class Step {
    kOpen,           // the file could not be opened
    kClosed,         // asked of a connection that is not open
    kInUse,          // asked of one that is running another statement
    kPrepare,        // the text of the statement
    kQueryCount,     // a query's number of arguments
    kUpdateCount,    // an update's number of arguments
    kBind,           // the value of an argument
    kQuery,          // fetching a row
    kUpdate,         // running an update
    kUnexpectedRow,  // an update that answers rows
    kFinish,         // ending a statement
    kRowNotWritten,  // an update went well, yet the row is not as it was written
  };

  Step step;
  int code = 0;           // SQLite's result code; 0 where it has none
  int extendedCode = 0;   // the same, more precisely
  std::string message{};  // SQLite's
  std::string sql{};
  std::string path{};
  std::size_t given = 0, wanted = 0;  // of a wrong number of arguments
};

// One activity as a transaction wrote it.
struct ActivityWrite {
  enum class Kind { kSaved, kUpdated, kRemoved };

  Kind kind;
  std::optional<std::string> guid;
  std::int32_t state = 0;
  std::optional<Date> start;
  std::uint64_t updatedOn = 0;
  std::optional<std::string> newInterval;  // the guid of one that was inserted
};

// A transaction ended that wrote something, or would have.
struct TransactionEnd {
  enum class Outcome {
    kStored,     // everything is in the file
    kNotStored,  // nothing is
    kUnknown,    // the commit reported an error and the file could not be read again
  };

  Outcome outcome;
  std::vector<ActivityWrite> writes;
};

// The change is stored, but the main application was not told to reload.
struct FlagNotRaised {
  std::string why;
};

using StoreEvent = std::variant<StatementFailure, TransactionEnd, FlagNotRaised>;

// Called on the thread that uses the store, between two of its statements: it must not use the
// store itself. May be empty.
using StoreListener = std::function<void(const StoreEvent&)>;

// The lines for the system log, the reason first; none for what SQLite calls no failure.
[[nodiscard]] std::vector<std::string> logLines(const StatementFailure& failure);

}  // namespace brevant
