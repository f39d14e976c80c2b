// SPDX-License-Identifier: MIT
#include "live/stop_activity_live_intent.h"

#include <optional>
#include <utility>

#include "live/activity_attribute.h"
#include "platform/live_activities.h"
#include "platform/log.h"
#include "platform/task_queue.h"
#include "widget/activity_operation.h"

namespace brevant {
namespace {

struct RunningLiveActivity {
  std::string id;
  ContentState state;
};

// Nobody is told when the registry fails: the intent does what it can without it.
void logTrouble(Log& log, const LiveActivityError* error) {
  if (error && error->kind == LiveActivityError::Kind::kRegistry) log.write(error->message);
}

// The first whose content is of that activity. One whose content does not decode is nobody's.
std::optional<RunningLiveActivity> findLiveActivity(const Platform& platform,
                                                    const std::string& guid) {
  const LiveActivityList list = platform.liveActivities.activities();
  logTrouble(platform.log, std::get_if<LiveActivityError>(&list));
  const auto* const running = std::get_if<std::vector<LiveActivity>>(&list);
  if (!running) return std::nullopt;
  for (const LiveActivity& each : *running) {
    Decoded<ContentState> decoded = ContentState::decoded(platform.coder, each.contentState);
    auto* const state = std::get_if<ContentState>(&decoded);
    if (state && state->guid == guid) return RunningLiveActivity{each.id, std::move(*state)};
  }
  return std::nullopt;
}

// The tasks below outlive the intent: they own what they work on and share only the registry and
// the log, which are there as long as any task.

void updateLiveActivity(const Platform& platform, const std::string& guid,
                        const std::string& message) {
  std::optional<RunningLiveActivity> live = findLiveActivity(platform, guid);
  if (!live) return;
  live->state.message = message;
  const std::optional<std::string> coded = live->state.encoded(platform.coder);
  if (!coded) return;
  platform.tasks.start(
      [&registry = platform.liveActivities, &log = platform.log, id = live->id, content = *coded] {
        const auto error = registry.update(id, content);
        logTrouble(log, error ? &*error : nullptr);
      });
}

void endLiveActivity(const Platform& platform, const std::string& guid, DismissalPolicy policy) {
  const std::optional<RunningLiveActivity> live = findLiveActivity(platform, guid);
  if (!live) return;
  platform.tasks.start(
      [&registry = platform.liveActivities, &log = platform.log, id = live->id, policy] {
        const auto error = registry.end(id, policy);
        logTrouble(log, error ? &*error : nullptr);
      });
}

}  // namespace

StopActivityLiveIntent::StopActivityLiveIntent(std::string guid, std::string operationWord) {
  activityId.value = std::move(guid);
  operation.value = std::move(operationWord);
}

IntentValue StopActivityLiveIntent::value() const {
  return {kName, activityId.value.value_or(""), operation.value.value_or("")};
}

void StopActivityLiveIntent::perform(const Platform& platform, StoreListener listener) const {
  if (!activityId.value || !operation.value) return;
  updateLiveActivity(platform, *activityId.value, *operation.value);
  performOperation(platform, *activityId.value, *operation.value, std::move(listener));
  endLiveActivity(platform, *activityId.value, DismissalPolicy::kImmediate);
}

}  // namespace brevant
