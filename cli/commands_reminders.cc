// SPDX-License-Identifier: MIT
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/json_reminders.h"
#include "cli/other_program.h"
#include "cli/reminder_actions.h"
#include "cli/reminder_store.h"
#include "cli/terminal_text.h"
#include "cli/text_time.h"
#include "manager/notify_settings.h"
#include "manager/widget_manager.h"

namespace brevant {
namespace {

ExitCode printSettings(Context& context) {
  context.warnIfNoContainer();
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

void printRequests(Context& context, const std::vector<NotificationRequest>& requests) {
  if (context.options.json) return context.print(notificationRequestsJson(requests));
  for (const NotificationRequest& request : requests) {
    const Date due = context.platform.calendar.date(request.trigger.components);
    context.printLine(dateText(due, context.platform.calendar) + "  " +
                      printable(request.content.body));
  }
}

ExitCode printPending(Context& context) {
  std::vector<NotificationRequest> requests;
  if (context.warnIfNoContainer()) {
    const ReminderStore store(context);
    requests = store.pending();
    if (store.problem()) context.warn(*store.problem());
  }
  printRequests(context, requests);
  return ExitCode::kDone;
}

ExitCode schedule(Context& context) {
  context.warnIfNoDatabase();
  const ReminderStore store(context);
  const auto manager = WidgetManager::open(store.platform(), context.store.listener());
  if (!manager->notifySettings().enabled) {
    if (!context.options.json) context.printLine("Reminders are off; nothing was scheduled");
    return context.done();
  }
  // With nothing to read there would be no times, and the pending ones would be gone.
  static_cast<void>(manager->notifyHours());
  if (context.store.failure()) return context.doneReading();
  manager->scheduleRemindMeNotifications();
  const std::size_t count = store.pending().size();
  if (context.store.failure()) return context.doneReading();
  if (store.problem()) return context.refuse("not every reminder was stored: " + *store.problem());
  if (!context.options.json) context.printLine("Pending reminders: " + std::to_string(count));
  return context.done();
}

ExitCode cancel(Context& context) {
  if (!context.warnIfNoContainer()) return context.done();
  const ReminderStore store(context);
  WidgetManager::open(store.platform())->cancelRemindMeNotifications();
  if (store.problem()) return context.refuse("nothing was cancelled: " + *store.problem());
  return context.done();
}

ExitCode deliverOnce(Context& context) {
  if (!context.warnIfNoContainer()) return context.done();
  const ReminderStore store(context);
  const Delivery delivery = deliverDueNotifications(store.platform(), *context.notifications);
  if (store.problem()) return context.refuse(*store.problem());
  switch (delivery) {
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
      .query(printSettings);
  reminders.command("times", "When it would remind within a day", "brevant reminders times")
      .query(printTimes);
  reminders.command("schedule", "Replace the pending reminders", "brevant reminders schedule")
      .run(schedule);
  reminders.command("cancel", "Remove the pending reminders", "brevant reminders cancel")
      .run(cancel);
  reminders.command("pending", "List the pending reminders", "brevant reminders pending --json")
      .query(printPending);

  const Command delivering =
      reminders.command("deliver", "Show what is due on the desktop and drop it",
                        "brevant reminders deliver --watch");
  const auto watch = delivering.flag("--watch",
                                     "Keep doing so until told to end with SIGTERM; only then with "
                                     "buttons to stop and pause what runs");
  delivering.run([watch](Context& context) { return deliver(context, *watch); });
}

}  // namespace brevant
