// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/intent.h"
#include "platform/platform.h"
#include "store/store_events.h"

namespace brevant {

// The intent behind the Live Activity's controls: pauses or stops one activity in the shared
// database and takes its Live Activity down, after a pause as well as after a stop and even when
// the database knows no such activity.
class StopActivityLiveIntent {
 public:
  static constexpr const char* kName = "StopActivityLiveIntent";
  static constexpr const char* kTitle = "Pause/Stop activity";  // a key of the string table
  static constexpr bool kOpenAppWhenRun = false;
  static constexpr bool kIsDiscoverable = false;

  StopActivityLiveIntent() = default;
  StopActivityLiveIntent(std::string guid, std::string operationWord);

  IntentParameter activityId{"activityId"};
  IntentParameter operation{"operation"};

  // As a button holds it.
  [[nodiscard]] IntentValue value() const;

  // Has no result and never fails; parameters that are not set change nothing. The Live Activity's
  // message becomes the operation and the Live Activity ends, each in a task that this starts and
  // does not wait for. The two tasks may run in any order: an update of an ended one does nothing.
  // The listener hears what became of the change in the database.
  void perform(const Platform& platform, StoreListener listener = {}) const;
};

}  // namespace brevant
