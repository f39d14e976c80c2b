// SPDX-License-Identifier: MIT
#include "widget/stop_activity_intent.h"

#include <utility>

#include "widget/activity_operation.h"

namespace brevant {

StopActivityIntent::StopActivityIntent(std::string guid, std::string operationWord) {
  activityId.value = std::move(guid);
  operation.value = std::move(operationWord);
}

IntentValue StopActivityIntent::value() const {
  return {kName, activityId.value.value_or(""), operation.value.value_or("")};
}

void StopActivityIntent::perform(const Platform& platform, StoreListener listener) const {
  if (!activityId.value || !operation.value) return;
  performOperation(platform, *activityId.value, *operation.value, std::move(listener));
}

}  // namespace brevant
