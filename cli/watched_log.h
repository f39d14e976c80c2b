#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/log.h"

namespace brevant {

// Passes every line on and remembers the first failure that the database layer tells. Its
// operations answer nothing when they fail, so the log is where "there is no such activity" and
// "the database could not be read" differ. Thread-safe.
class WatchedLog : public Log {
 public:
  explicit WatchedLog(Log& log) : log_(log) {}

  void write(std::string_view line) override;

  // What went wrong since the last `forget`, in words for people: "the database stayed locked", or
  // the database's own message.
  [[nodiscard]] std::optional<std::string> failure() const;
  void forget();

 private:
  Log& log_;
  mutable std::mutex mutex_;
  std::optional<std::string> failure_;
};

}  // namespace brevant
