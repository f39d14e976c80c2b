// SPDX-License-Identifier: MIT
#include "platform/linux/next_notification.h"

#include "platform/linux/calendar.h"

namespace brevant {
namespace {

// Of a local time that occurs twice, that which the request was made for; where the zone is another
// by now, or nothing is known of it, the first that was still to come.
std::optional<Date> dueDate(const Calendar& calendar, const NotificationRequest& request) {
  const auto& [components, repeats, meant] = request.trigger;
  const auto isToCome = [&](Date date) { return !request.added || date > *request.added; };
  const Date first = calendar.date(components);
  const std::optional<Date> second = secondDate(components);
  const bool meansSecond = second && meant && *meant >= *second && *meant < *second + Seconds(1);
  if (!meansSecond && isToCome(first)) return first;
  return second && isToCome(*second) ? second : std::nullopt;
}

}  // namespace

std::optional<NextNotification> nextNotification(const std::vector<NotificationRequest>& pending) {
  const std::unique_ptr<Calendar> calendar = makeCalendar();
  const NotificationRequest* next = nullptr;
  std::optional<Date> nextDue;
  for (const NotificationRequest& each : pending) {
    const std::optional<Date> due = dueDate(*calendar, each);
    if (next != nullptr && due >= nextDue) continue;
    next = &each;
    nextDue = due;
  }
  if (next == nullptr) return std::nullopt;
  return NextNotification{*next, nextDue};
}

}  // namespace brevant
