#include <algorithm>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_reminders.h"
#include "cli/other_program.h"
#include "cli/pending_requests.h"
#include "cli/reminder_actions.h"
#include "cli/terminal_text.h"
#include "cli/text_time.h"
#include "manager/notify_settings.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

ExitCode printSettings(Context& context) {
  const NotifySettings settings = WidgetManager::open(context.platform)->notifySettings();
  const std::string description = settings.description(context.platform.bundle);
  if (context.options.json) {
    context.print(notifySettingsJson(settings, description));
  } else {
    context.printLine(settings.enabled ? description : description + " (off)");
  }
  return ExitCode::kDone;
}

ExitCode printTimes(Context& context) {
  const std::vector<Date> times = context.openForReading()->notifyHours();
  if (context.options.json) {
    context.print(datesJson(times));
  } else {
    for (const Date& time : times) context.printLine(dateText(time, context.platform.calendar));
  }
  return context.doneReading();
}

ExitCode printPending(Context& context) {
  const std::vector<NotificationRequest> requests = pendingRequests(context.platform.notifications);
  if (context.options.json) {
    context.print(notificationRequestsJson(requests));
    return ExitCode::kDone;
  }
  for (const NotificationRequest& request : requests) {
    const Date due = context.platform.calendar.date(request.trigger.components);
    context.printLine(dateText(due, context.platform.calendar) + "  " +
                      printable(request.content.body));
  }
  return ExitCode::kDone;
}

// Neither scheduling nor cancelling answers anything, so both are told by what is pending
// afterwards.
ExitCode refuseUnstored(Context& context) {
  return context.refuse("the pending reminders could not be stored");
}

ExitCode schedule(Context& context) {
  const auto manager = context.openForReading();
  if (!manager->notifySettings().enabled) {
    if (!context.options.json) context.printLine("Reminders are off; nothing was scheduled");
    return context.done();
  }
  const auto before = pendingRequests(context.platform.notifications);
  manager->scheduleRemindMeNotifications();
  const auto after = pendingRequests(context.platform.notifications);
  if (context.log.failure()) return context.doneReading();
  const bool hasTimes = !manager->notifyHours().empty();
  if (hasTimes && (after.empty() || after == before)) return refuseUnstored(context);
  if (!context.options.json) {
    context.printLine("Pending reminders: " + std::to_string(after.size()));
  }
  return context.done();
}

ExitCode cancel(Context& context) {
  WidgetManager::open(context.platform)->cancelRemindMeNotifications();
  const auto left = pendingRequests(context.platform.notifications);
  const bool isReminderLeft = std::any_of(left.begin(), left.end(), [](const auto& request) {
    const auto type = request.content.userInfo.find("type");
    return type != request.content.userInfo.end() && type->second == "notify";
  });
  return isReminderLeft ? refuseUnstored(context) : context.done();
}

ExitCode deliverOnce(Context& context) {
  switch (deliverDueNotifications(context.platform, *context.notifications)) {
    case Delivery::kDone:
      return context.done();
    case Delivery::kNoService:
      return context.refuse("no notification service is running; what is due stays pending");
    case Delivery::kFailed:
      break;
  }
  return context.refuse("the pending reminders cannot be read and written in this container");
}

ExitCode deliver(Context& context, bool keepWatching) {
  if (context.notifications == nullptr) {
    const std::optional<std::string> program = sessionProgram();
    return context.refuse(program ? become(*program, context.arguments)
                                  : "libexec/brevant-session, which shows reminders, is missing");
  }
  if (!keepWatching) return deliverOnce(context);
  return watchNotifications(context.platform, *context.notifications, reminderActions(context))
             ? ExitCode::kDone
             : context.refuse("the pending reminders cannot be kept in this container");
}

}  // namespace

void addReminderCommands(CommandLine& line) {
  const Command reminders =
      line.group("reminders", "Show, schedule and deliver reminders", "brevant reminders pending");
  reminders
      .command("settings", "How the tracker wants to remind", "brevant reminders settings --json")
      .run(printSettings);
  reminders.command("times", "When it would remind within a day", "brevant reminders times")
      .run(printTimes);
  reminders.command("schedule", "Replace the pending reminders", "brevant reminders schedule")
      .run(schedule);
  reminders.command("cancel", "Remove the pending reminders", "brevant reminders cancel")
      .run(cancel);
  reminders.command("pending", "List the pending reminders", "brevant reminders pending --json")
      .run(printPending);

  const Command delivering =
      reminders.command("deliver", "Show what is due on the desktop and drop it",
                        "brevant reminders deliver --watch");
  const auto watch = delivering.flag("--watch", "Keep doing so until told to end with SIGTERM");
  delivering.run([watch](Context& context) { return deliver(context, *watch); });
}

}  // namespace brevant
