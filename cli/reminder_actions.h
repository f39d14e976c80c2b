// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/notification_delivery.h"

namespace brevant {

class Context;

// What a reminder offers: a click opens the host; while something runs, "Pause" and "Stop" of the
// activity that the widget shows, named where several run; "Snooze 10 min". And what keeps the
// pending ones up to date.
NotificationActions reminderActions(Context& context);

}  // namespace brevant
