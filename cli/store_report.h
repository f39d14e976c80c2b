// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "store/store_events.h"

namespace brevant {

// What the store told since the last `forget`: its operations answer nothing, so this is how a
// command knows what became of a change, and that an empty answer is a failed one. Used by the
// thread that uses the store.
class StoreReport {
 public:
  // The report must outlive whoever it is given to.
  [[nodiscard]] StoreListener listener();

  void forget();

  // What went wrong first, in words for people: "the database stayed locked", or the database's own
  // message.
  [[nodiscard]] std::optional<std::string> failure() const;

  // Of the last transaction that wrote; absent when none did.
  [[nodiscard]] const std::optional<TransactionEnd>& end() const { return end_; }

  // Why the main application was not told of a change that is stored.
  [[nodiscard]] const std::optional<std::string>& untold() const { return untold_; }

 private:
  std::optional<StatementFailure> failure_;
  std::optional<TransactionEnd> end_;
  std::optional<std::string> untold_;
};

}  // namespace brevant
