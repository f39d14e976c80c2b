// SPDX-License-Identifier: MIT
#include "store/transaction.h"

#include <sqlite3.h>

#include "store/widget_dao.h"

namespace brevant {

using Outcome = TransactionEnd::Outcome;

namespace {

// An exclusive lock is lowered and given back once everything is stored, never before.
bool isErrorOfUnlocking(int extendedCode) {
  return extendedCode == SQLITE_IOERR_UNLOCK || extendedCode == SQLITE_IOERR_RDLOCK;
}

}  // namespace

Transaction::Transaction(WidgetDAO& dao)
    : dao_(dao), root_(dao.transaction_ ? dao.transaction_ : this) {
  if (root_ != this) return;
  dao_.transaction_ = this;
  budget_.emplace(database());
  began_ = database() && database()->beginTransaction();
}

Transaction::~Transaction() {
  if (root_ != this) return;
  if (!ended_) undo();
  dao_.transaction_ = nullptr;
}

FMDatabase* Transaction::database() const {
  return dao_.db.get();
}

bool Transaction::isOpen() const {
  return root_->began_ && database()->isInTransaction();
}

void Transaction::commit() {
  if (root_ != this || ended_) return;
  ended_ = true;
  const Outcome outcome = store();
  if (writes_.empty()) return;
  dao_.tell(TransactionEnd{outcome, std::move(writes_)});
  if (outcome == Outcome::kStored) dao_.activityUpdated();
}

Outcome Transaction::store() {
  if (failed_ || !isOpen() || writes_.empty()) {
    undo();
    return Outcome::kNotStored;
  }
  if (database()->commit()) return Outcome::kStored;
  const bool onlyKeptLock = isErrorOfUnlocking(database()->lastExtendedErrorCode());
  if (database()->isInTransaction() && database()->rollback()) return Outcome::kNotStored;
  // Whether the error came before or after the point of no return only the file tells.
  const Outcome found = dao_.readAgain(writes_.back());
  return found == Outcome::kUnknown && onlyKeptLock ? Outcome::kStored : found;
}

void Transaction::undo() {
  if (isOpen()) database()->rollback();
}

}  // namespace brevant
