// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "platform/notifications.h"

namespace brevant {

// A pending request and the instant at which it comes due in the zone of this moment; absent when
// that was over before it was added, as may be where the zone has changed since.
struct NextNotification {
  NotificationRequest request;
  std::optional<Date> due;
};

// The one of `pending` that comes due first; absent when there is none.
std::optional<NextNotification> nextNotification(const std::vector<NotificationRequest>& pending);

}  // namespace brevant
