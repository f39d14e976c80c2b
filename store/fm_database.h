#pragma once

#include <array>
#include <concepts>
#include <initializer_list>
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

struct sqlite3;

namespace brevant {

class FMStatement;

// One connection to a SQLite database. Closed at first; open from `open` until `close` or its
// destruction, which also closes every cursor that is still open. While another connection has the
// file locked, statements wait and retry, for two seconds at most. One thread at a time.
//
// Nothing throws: a failed operation answers false or a null cursor and is logged. There is no
// nesting of transactions.
class FMDatabase {
 public:
  // Without a path: a private database in memory.
  FMDatabase(std::optional<std::string> path, const Clock& clock, RandomSource& random, Log& log);
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

  // Of the last statement.
  [[nodiscard]] int lastErrorCode() const;
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
  void reportUpdate(int result, std::string_view sql);
  bool retryAfterBusy(int count);
  void finalizeLeakedStatements();

  void report(std::string_view line);
  void fail(std::initializer_list<std::string> lines);
  std::string errorText(int code) const;
  std::string description() const;

  std::optional<std::string> path_;
  const Clock& clock_;
  RandomSource& random_;
  Log& log_;
  sqlite3* handle_ = nullptr;
  bool isExecuting_ = false;
  double busyStart_ = 0;  // when the current wait began, on the clock that never steps
  std::vector<FMResultSet*> openResultSets_;
  std::vector<std::shared_ptr<FMStatement>> cachedStatements_;
};

}  // namespace brevant
