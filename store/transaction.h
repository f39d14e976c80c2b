// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "store/fm_database.h"
#include "store/store_events.h"

namespace brevant {

class WidgetDAO;

// One exclusive transaction on a data-access object's database, so that what is written rests on
// what was read in it. Made while another is open on the same object it joins that one, whose end
// decides for both. Not committed when it goes, everything in it is undone.
//
// After a failed statement the others still run, so that the log tells of all failures; without the
// lock, or once a failure has ended the transaction, none does, as each would be stored by itself.
class Transaction {
 public:
  // Begins at once, waiting for the lock as long as the connection does.
  explicit Transaction(WidgetDAO& dao);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // Whether the lock is held: reading and writing make sense.
  [[nodiscard]] bool isOpen() const;

  template <typename... Arguments>
  void execute(std::string_view sql, const Arguments&... arguments) {
    if (!isOpen() || !database()->executeUpdate(sql, arguments...)) fail();
  }

  // Nothing of it will be stored: a read or a write failed.
  void fail() { root_->failed_ = true; }
  [[nodiscard]] bool hasFailed() const { return root_->failed_; }

  void wrote(ActivityWrite write) { root_->writes_.push_back(std::move(write)); }

  // Ends it; where one was joined, leaves that to it. Stores what was written when nothing failed,
  // else undoes it, and tells the listener which. Then the main application is told to reload.
  void commit();

 private:
  [[nodiscard]] FMDatabase* database() const;
  TransactionEnd::Outcome store();
  void undo();

  WidgetDAO& dao_;
  Transaction* const root_;  // itself, unless it joined another
  bool began_ = false;
  bool failed_ = false;
  bool ended_ = false;
  std::vector<ActivityWrite> writes_;
  std::optional<FMDatabase::Budget> budget_;
};

}  // namespace brevant
