// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/log.h"
#include "platform/random_source.h"
#include "store/argument.h"
#include "store/fm_result_set.h"
#include "store/store_events.h"

struct sqlite3;

namespace brevant {

class FMStatement;

// One connection to a SQLite database. Closed at first; open from `open` until `close` or its
// destruction, which also closes every cursor that is still open. While another connection has the
// file locked, statements wait and retry, for two seconds at most. One thread at a time.
//
// Nothing throws: a failed operation answers false or a null cursor; the listener is told of it and
// it is logged. There is no nesting of transactions.
class FMDatabase {
 public:
  // Without a path: a private database in memory.
  FMDatabase(std::optional<std::string> path, const Clock& clock, RandomSource& random, Log& log,
             StoreListener listener = {});
  ~FMDatabase();
  FMDatabase(const FMDatabase&) = delete;
  FMDatabase& operator=(const FMDatabase&) = delete;

  // Reading and writing; a missing file is created.
  bool open();
  bool close();

  // Runs a query with one argument per "?", given one by one or in a list. The first row comes with
  // the cursor's first `next`.
  template <typename... Arguments>
  requires(std::convertible_to<const Arguments&, Argument>&&...)
      std::unique_ptr<FMResultSet> executeQuery(std::string_view sql,
                                                const Arguments&... arguments) {
    const std::array<Argument, sizeof...(arguments)> list{Argument(arguments)...};
    return executeQuery(sql, std::span<const Argument>(list));
  }
  std::unique_ptr<FMResultSet> executeQuery(std::string_view sql,
                                            std::span<const Argument> arguments);

  // Runs a statement that answers no rows.
  template <typename... Arguments>
  requires(std::convertible_to<const Arguments&, Argument>&&...) bool executeUpdate(
      std::string_view sql, const Arguments&... arguments) {
    const std::array<Argument, sizeof...(arguments)> list{Argument(arguments)...};
    return executeUpdate(sql, std::span<const Argument>(list));
  }
  bool executeUpdate(std::string_view sql, std::span<const Argument> arguments);

  bool beginTransaction();  // exclusive
  bool beginDeferredTransaction();
  bool commit();
  bool rollback();

  // Runs no statement. A failure can end the transaction: SQLite itself undoes it all when the disk
  // is full or broken.
  [[nodiscard]] bool isInTransaction() const;

  // Bounds a piece of work on a file that others wrote, while it lives: a view without end or a
  // trigger that starts itself would otherwise keep it running, or fill the memory. Beyond its time
  // or its amount a statement fails. One within another counts as part of that.
  class Budget {
   public:
    explicit Budget(FMDatabase* database);  // null: of nothing
    ~Budget();
    Budget(const Budget&) = delete;
    Budget& operator=(const Budget&) = delete;

   private:
    FMDatabase* database_;  // null when it is part of another
  };

  // Tells of a failure that is no statement's own.
  void fail(StatementFailure failure);

  // Of the last statement.
  [[nodiscard]] int lastErrorCode() const;
  [[nodiscard]] int lastExtendedErrorCode() const;
  [[nodiscard]] std::string lastErrorMessage() const;

  // Null while closed.
  sqlite3* sqliteHandle() const { return handle_; }

  bool logsErrors = true;
  bool crashOnErrors = false;             // a failed statement ends the process
  bool shouldCacheStatements = false;     // keep prepared statements for the next time
  double maxBusyRetryTimeInterval = 2.0;  // seconds; 0, set before opening, never waits

 private:
  friend class FMResultSet;

  bool isReady();
  std::shared_ptr<FMStatement> prepare(std::string_view sql);
  std::shared_ptr<FMStatement> cachedStatement(std::string_view sql) const;
  bool bind(FMStatement& statement, std::span<const Argument> arguments,
            StatementFailure::Step wrongCount);
  void distrust();
  bool retryAfterBusy(int count);
  bool isOverdue() const;
  bool spend(std::size_t bytes);
  std::size_t fileSize() const;
  void finalizeLeakedStatements();

  void report(std::string_view line);
  std::string description() const;

  std::optional<std::string> path_;
  const Clock& clock_;
  RandomSource& random_;
  Log& log_;
  StoreListener listener_;
  sqlite3* handle_ = nullptr;
  bool isExecuting_ = false;

  // While there is a budget: when it is over, on the clock that never steps, and the bytes read.
  std::optional<double> deadline_;
  std::size_t spent_ = 0;
  std::optional<std::size_t> allowed_;  // looked up when much was spent

  double busyStart_ = 0;  // when the current wait began, on the clock that never steps
  std::vector<FMResultSet*> openResultSets_;
  std::vector<std::shared_ptr<FMStatement>> cachedStatements_;
};

}  // namespace brevant
