// SPDX-License-Identifier: MIT

// "What are you doing now?": when to ask, and the notifications that do.
#include <algorithm>
#include <memory>
#include <utility>

#include "manager/notify_settings.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"
#include "platform/clock.h"
#include "platform/notifications.h"
#include "platform/process_info.h"
#include "platform/shared_settings.h"

namespace brevant {
namespace {

constexpr std::size_t kMostReminders = 20;
constexpr const char* kIdentifierMark = "remind-";
constexpr const char* kTypeMark = "notify";

// 0 = Monday to 6 = Sunday.
std::size_t weekdayFromMonday(const DateComponents& components) {
  constexpr int kSunday = 1;
  return components.weekday == kSunday ? 6 : static_cast<std::size_t>(components.weekday - 2);
}

std::string filled(std::string format, const std::string& text) {
  const std::size_t place = format.find("%@");
  return place == std::string::npos ? format : format.replace(place, 2, text);
}

template <typename Predicate>
std::vector<std::string> identifiersOf(const std::vector<NotificationRequest>& requests,
                                       Predicate isMarked) {
  std::vector<std::string> identifiers;
  for (const NotificationRequest& request : requests) {
    if (isMarked(request)) identifiers.push_back(request.identifier);
  }
  return identifiers;
}

ReminderCompletion heard(ReminderCompletion done) {
  return done ? std::move(done) : [](const SaveOutcome&) {};
}

bool isScheduledReminder(const NotificationRequest& request) {
  return request.identifier.find(kIdentifierMark) != std::string::npos;
}

bool isReminderByType(const NotificationRequest& request) {
  const auto type = request.content.userInfo.find("type");
  return type != request.content.userInfo.end() &&
         type->second.find(kTypeMark) != std::string::npos;
}

}  // namespace

NotifySettings WidgetManager::notifySettings() const {
  const auto stored = platform_.settings.object("notifySettings");
  return NotifySettings(stored ? std::get_if<PropertyDictionary>(&stored->value) : nullptr);
}

std::vector<Date> WidgetManager::notifyHours() const {
  const NotifySettings settings = notifySettings();
  if (!settings.enabled || settings.minutes <= 0) return {};
  const bool running = !findRunningActivities().empty();
  if (settings.type == (running ? kRemindWhileNothingRuns : kRemindWhileRunning)) return {};

  const Seconds step(60.0 * settings.minutes);
  const Date now = platform_.clock.now();
  // At the ends of the calendar a day later is no such thing; the walk must end there, too.
  const Date end = std::min(addDayTo(now), now + Seconds(72 * 3600.0));
  std::vector<Date> dates;
  Date before = now;
  for (double k = 1; dates.size() < kMostReminders; ++k) {
    const Date candidate = now + k * step;
    // Far from 1970 a step is less than dates can tell apart.
    if (candidate >= end || candidate <= before) break;
    before = candidate;
    const DateComponents local = weekdayTimeComponentsForDate(candidate);
    if (settings.includes(static_cast<std::size_t>(local.hour), weekdayFromMonday(local))) {
      dates.push_back(candidate);
    }
  }
  return dates;
}

void WidgetManager::scheduleRemindMeNotifications(ReminderCompletion done) {
  const bool enabled = notifySettings().enabled;
  if (std::string why = platform_.settings.problem(); !why.empty()) {
    return heard(done)(notSaved(std::move(why)));
  }
  if (!enabled) return heard(done)({});
  const auto unread = std::make_shared<bool>(false);
  const auto replace = [platform = platform_, path = path_, unread,
                        listener = listener_](const std::vector<NotificationRequest>& pending) {
    bool& failed = *unread;
    failed = false;  // when called anew
    const auto listen = [&](const StoreEvent& event) {
      failed = failed || std::holds_alternative<StatementFailure>(event);
      if (listener) listener(event);
    };
    const WidgetManager manager(platform, path, listen);
    const std::vector<NotificationRequest> reminders = manager.reminders();
    if (failed) return;  // they would be those of other activities than run
    UserNotificationCenter& center = platform.notifications;
    center.removePendingRequests(identifiersOf(pending, isScheduledReminder));
    for (const NotificationRequest& each : reminders) center.add(each, [](const auto&) {});
  };
  const auto tell = [unread, done = heard(std::move(done))](const SaveOutcome& outcome) {
    done(*unread ? notSaved("the database could not be read") : outcome);
  };
  platform_.notifications.pendingRequests(replace, tell);
}

std::vector<NotificationRequest> WidgetManager::reminders() const {
  const std::vector<Date> dates = notifyHours();
  const NotificationContent content = reminderContent();
  std::vector<NotificationRequest> requests;
  requests.reserve(dates.size());
  for (const Date date : dates) {
    requests.push_back({kIdentifierMark + generateGUID(), content,
                        CalendarTrigger{platform_.calendar.components(date), false, date}});
  }
  return requests;
}

NotificationContent WidgetManager::reminderContent() const {
  const Bundle& bundle = platform_.bundle;
  NotificationContent content;
  content.title = bundle.localizedString("Remind");
  content.userInfo = {{"type", kTypeMark}};
  content.sound = "default";
  const ActivityList running = findRunningActivities();
  if (running.empty()) {
    content.body = bundle.localizedString("What are you doing now?");
    return content;
  }
  const std::optional<std::string>& guid = running.front()->categoryGuid;
  const TypeRef category = guid ? findById(*guid) : nullptr;
  content.body = filled(bundle.localizedString("What are you doing now? Now running: %@"),
                        category ? category->name.value_or("") : "");
  return content;
}

void WidgetManager::cancelRemindMeNotifications(ReminderCompletion done) {
  UserNotificationCenter& center = platform_.notifications;
  const auto remove = [&center](const std::vector<NotificationRequest>& pending) {
    center.removePendingRequests(identifiersOf(pending, isReminderByType));
  };
  center.pendingRequests(remove, heard(std::move(done)));
}

DateComponents WidgetManager::weekdayTimeComponentsForDate(Date date) const {
  return platform_.calendar.components(date);
}

Date WidgetManager::addDayTo(Date date) const {
  return platform_.calendar.addingDays(date, 1);
}

bool WidgetManager::iOS10() const {
  const std::string version = platform_.process.systemVersionString();
  return !version.starts_with('9') && !version.starts_with('8');
}

}  // namespace brevant
