#pragma once

#include <vector>

#include "platform/notifications.h"

namespace brevant {

// Waits for the centre's answer.
std::vector<NotificationRequest> pendingRequests(UserNotificationCenter& center);

}  // namespace brevant
