// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/notification_delivery.h"

namespace brevant {

class Context;

// The buttons of a reminder: while something runs, "Stop" and "Pause" of the activity that it
// names.
NotificationActions reminderActions(Context& context);

}  // namespace brevant
