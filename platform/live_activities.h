// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace brevant {

enum class LiveActivityState { kActive, kEnded };

enum class DismissalPolicy {
  kDefault,    // stays on show as ended for a while
  kImmediate,  // leaves the list of running activities at once
};

// One Live Activity as the registry keeps it; `contentState` is the coded (JSON) content.
struct LiveActivity {
  std::string id;
  LiveActivityState state = LiveActivityState::kActive;
  std::string contentState;

  bool operator==(const LiveActivity&) const = default;
};

struct StartedLiveActivity {
  std::string id;
};

// Why the registry did not answer or did not change, in one line for people. It then is as it was.
struct LiveActivityError {
  enum class Kind {
    kNotRunning,  // it is unknown or has ended; an ended one never changes
    kContent,     // more than 4096 bytes, or no text
    kRegistry,    // damaged, unreadable or not to be written; what runs is not known
  };
  Kind kind = Kind::kRegistry;
  std::string message;
};

using LiveActivityList = std::variant<std::vector<LiveActivity>, LiveActivityError>;

// The registry of Live Activities, shared between processes. Every call is atomic, safe against a
// process killed in between, may come from any thread and may wait for a short lock. One that is
// not there yet is empty; one that cannot be read never counts as empty. It tells its caller what
// went wrong and logs nothing.
class LiveActivityCenter {
 public:
  virtual ~LiveActivityCenter() = default;

  // The running activities in the order they were started.
  virtual LiveActivityList activities() const = 0;

  // Also those that ended within the last day, with the last content that they had.
  virtual LiveActivityList allActivities() const = 0;

  virtual std::variant<StartedLiveActivity, LiveActivityError> start(
      const std::string& contentState) = 0;

  // Absent when it is done.
  [[nodiscard]] virtual std::optional<LiveActivityError> update(
      const std::string& id, const std::string& contentState) = 0;

  // Absent when it is done.
  [[nodiscard]] virtual std::optional<LiveActivityError> end(const std::string& id,
                                                             DismissalPolicy policy) = 0;
};

}  // namespace brevant
