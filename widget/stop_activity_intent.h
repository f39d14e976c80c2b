// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/intent.h"
#include "platform/platform.h"
#include "store/store_events.h"

namespace brevant {

// The intent behind the home-screen widget's controls: pauses or stops one activity in the shared
// database, without opening the application. It reloads no timeline and touches no Live Activity.
class StopActivityIntent {
 public:
  static constexpr const char* kName = "StopActivityIntent";
  static constexpr const char* kTitle = "Stop activity";  // a key of the string table

  StopActivityIntent() = default;
  StopActivityIntent(std::string guid, std::string operationWord);

  IntentParameter activityId{"activityId"};
  IntentParameter operation{"operation"};

  // As a button holds it.
  [[nodiscard]] IntentValue value() const;

  // Has no result and never fails; parameters that are not set change nothing. The listener hears
  // what became of the change.
  void perform(const Platform& platform, StoreListener listener = {}) const;
};

}  // namespace brevant
