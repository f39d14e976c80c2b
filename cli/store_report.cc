// SPDX-License-Identifier: MIT
#include "cli/store_report.h"

#include <variant>

#include "cli/words.h"

namespace brevant {
namespace {

// SQLite's result codes that have better words than its own.
constexpr int kBusy = 5;
constexpr int kLocked = 6;
constexpr int kInterrupted = 9;

std::string inWords(const StatementFailure& failure) {
  if (failure.code == kBusy || failure.code == kLocked) return tr("the database stayed locked");
  if (failure.code == kInterrupted) {
    return tr("the database took too long to answer: it has a view or a trigger without end");
  }
  if (failure.step == StatementFailure::Step::kOpen) return tr("it could not be opened");
  return failure.message;
}

}  // namespace

StoreListener StoreReport::listener() {
  return [this](const StoreEvent& event) {
    if (const auto* failure = std::get_if<StatementFailure>(&event)) {
      if (!failure_) failure_ = *failure;
    } else if (const auto* end = std::get_if<TransactionEnd>(&event)) {
      end_ = *end;
    } else {
      untold_ = std::get<FlagNotRaised>(event).why;
    }
  };
}

void StoreReport::forget() {
  *this = {};
}

std::optional<std::string> StoreReport::failure() const {
  if (!failure_) return std::nullopt;
  return inWords(*failure_);
}

}  // namespace brevant
