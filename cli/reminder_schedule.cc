// SPDX-License-Identifier: MIT
#include "cli/reminder_schedule.h"

#include <algorithm>
#include <utility>

#include "manager/notify_settings.h"
#include "manager/widget_manager.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/notifications.h"
#include "platform/shared_settings.h"

namespace brevant {
namespace {

// The database may be locked for a moment, the disk full for longer.
constexpr Seconds kRetry{10};
constexpr Seconds kAtLeast{1};

}  // namespace

Seconds ReminderSchedule::keep() {
  const std::optional<Basis> current = basis();
  if (!current) return kRetry;
  const Date now = platform_.clock.now();
  if (current != last_ || now >= until_) {
    if (!schedule(*current)) return kRetry;
    last_ = current;
    const auto manager = WidgetManager::open(platform_);
    const std::vector<Date> times = manager->notifyHours();
    until_ = times.empty() ? manager->addDayTo(now) : times.back();
  }
  return std::max(until_ - now, kAtLeast);
}

// Absent when the database or the settings could not be read.
std::optional<ReminderSchedule::Basis> ReminderSchedule::basis() const {
  bool failed = false;
  const auto manager = WidgetManager::open(platform_, [&failed](const StoreEvent& event) {
    failed = failed || std::holds_alternative<StatementFailure>(event);
  });
  const NotifySettings settings = manager->notifySettings();
  failed = failed || !platform_.settings.problem().empty();  // of that very read
  Basis result{settings.enabled, settings.dictionary(), {}, manager->reminderContent().body};
  for (const ActivityRef& each : manager->findRunningActivities()) {
    result.running.push_back(each->guid.value_or(""));
  }
  return failed ? std::nullopt : std::optional(std::move(result));
}

// Reminders that were off from the start are left to whoever added them.
bool ReminderSchedule::schedule(const Basis& current) {
  SaveOutcome outcome;
  const auto hear = [&outcome](const SaveOutcome& heard) { outcome = heard; };
  const auto manager = WidgetManager::open(platform_);
  if (current.enabled)
    manager->scheduleRemindMeNotifications(hear);
  else if (last_ && last_->enabled)
    manager->cancelRemindMeNotifications(hear);
  if (std::exchange(told_, outcome.why) != outcome.why && !outcome.why.empty()) {
    platform_.log.write("Reminders: " + outcome.why);
  }
  return outcome.isSaved();
}

}  // namespace brevant
