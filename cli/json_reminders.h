// SPDX-License-Identifier: MIT

// Reminders and their settings in JSON.
#pragma once

#include <string>
#include <vector>

#include "manager/notify_settings.h"
#include "platform/date.h"
#include "platform/notifications.h"

namespace brevant {

std::string notifySettingsJson(const NotifySettings& settings, const std::string& description);
std::string datesJson(const std::vector<Date>& dates);
std::string notificationRequestsJson(const std::vector<NotificationRequest>& requests);

}  // namespace brevant
