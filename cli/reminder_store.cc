// SPDX-License-Identifier: MIT
#include "cli/reminder_store.h"

#include "cli/context.h"
#include "cli/database_place.h"
#include "platform/linux/notification_store.h"

namespace brevant {

ReminderStore::ReminderStore(const Context& context)
    : context_(context.platform),
      center_(makeNotificationStore(containerDirectory(context_.files).value_or(""), context_.clock,
                                    log_)) {}

Platform ReminderStore::platform() const {
  const Platform& p = context_;
  return {p.clock,  p.calendar,    p.files,          p.settings, p.bundle,
          p.images, p.caseMapping, p.coder,          p.process,  p.random,
          p.cloud,  *center_,      p.liveActivities, p.tasks,    p.log};
}

std::vector<NotificationRequest> ReminderStore::pending() const {
  std::vector<NotificationRequest> pending;
  center_->pendingRequests([&](const auto& requests) { pending = requests; });
  return pending;
}

}  // namespace brevant
