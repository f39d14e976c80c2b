#pragma once

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
struct LiveActivityError {
  std::string message;
};

// The registry of Live Activities, shared between processes. Every call is atomic, safe against a
// process killed in between, may come from any thread and may wait for a short lock.
class LiveActivityCenter {
 public:
  virtual ~LiveActivityCenter() = default;

  // The running activities in the order they were started.
  virtual std::vector<LiveActivity> activities() const = 0;

  // Also those that ended within the last day, with the last content that they had.
  virtual std::vector<LiveActivity> allActivities() const = 0;

  // Refuses a content state of more than 4096 bytes.
  virtual std::variant<StartedLiveActivity, LiveActivityError> start(
      const std::string& contentState) = 0;

  // False when it is unknown, has ended (an ended one never changes), when the content is above
  // 4096 bytes, or when the registry cannot be written.
  virtual bool update(const std::string& id, const std::string& contentState) = 0;

  // False when it is unknown or has ended, or when the registry cannot be written.
  virtual bool end(const std::string& id, DismissalPolicy policy) = 0;
};

}  // namespace brevant
