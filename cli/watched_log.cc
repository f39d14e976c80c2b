#include "cli/watched_log.h"

#include <charconv>

namespace brevant {
namespace {

// SQLite's result codes for a file, or a table, that someone else keeps.
constexpr int kBusy = 5;
constexpr int kLocked = 6;

std::string reason(int code, std::string_view message) {
  if (code == kBusy || code == kLocked) return "the database stayed locked";
  return std::string(message);
}

// "… 5 "database is locked"" or "… (5: database is locked) …": a code, then the message up to the
// last closing mark.
std::optional<std::string> failureIn(std::string_view line, std::string_view before,
                                     std::string_view between, char closing) {
  const std::size_t at = line.find(before);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view rest = line.substr(at + before.size());
  int code = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), code);
  if (error != std::errc()) return std::nullopt;
  std::string_view message = rest.substr(static_cast<std::size_t>(end - rest.data()));
  if (!message.starts_with(between)) return std::nullopt;
  message.remove_prefix(between.size());
  return reason(code, message.substr(0, message.rfind(closing)));
}

std::optional<std::string> failureIn(std::string_view line) {
  if (line.find("Database busy") != std::string_view::npos) return reason(kBusy, {});
  if (auto told = failureIn(line, "DB Error: ", " \"", '"')) return told;
  if (auto told = failureIn(line, "rror calling sqlite3_step (", ": ", ')')) return told;
  if (auto told = failureIn(line, "Query was interrupted (", ": ", ')')) return told;
  if (line.find("error opening!") != std::string_view::npos) return "it could not be opened";
  return std::nullopt;
}

}  // namespace

void WatchedLog::write(std::string_view line) {
  {
    const std::lock_guard lock(mutex_);
    if (!failure_) failure_ = failureIn(line);
  }
  log_.write(line);
}

std::optional<std::string> WatchedLog::failure() const {
  const std::lock_guard lock(mutex_);
  return failure_;
}

void WatchedLog::forget() {
  const std::lock_guard lock(mutex_);
  failure_.reset();
}

}  // namespace brevant
