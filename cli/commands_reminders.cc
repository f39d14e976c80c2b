// SPDX-License-Identifier: MIT
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/json_reminders.h"
#include "cli/other_program.h"
#include "cli/reminder_actions.h"
#include "cli/terminal_text.h"
#include "cli/text_time.h"
#include "cli/words.h"
#include "manager/notify_settings.h"
#include "manager/widget_manager.h"
#include "platform/shared_settings.h"

namespace brevant {
namespace {

ExitCode printSettings(Context& context) {
  context.warnIfNoContainer();
  const NotifySettings settings = WidgetManager::open(context.platform)->notifySettings();
  const std::string description = settings.description(context.platform.bundle);
  if (context.options.json) {
    context.print(notifySettingsJson(settings, description));
  } else {
    context.printLine(settings.enabled ? description : tr("%1 (off)", description));
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

UserNotificationCenter::Completion hearInto(SaveOutcome& outcome) {
  return [&outcome](const SaveOutcome& heard) { outcome = heard; };
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
  SaveOutcome outcome;
  if (context.warnIfNoContainer()) {
    context.platform.notifications.pendingRequests([&](const auto& pending) { requests = pending; },
                                                   hearInto(outcome));
  }
  if (!outcome.isSaved()) return context.refuse(outcome.why);
  printRequests(context, requests);
  return ExitCode::kDone;
}

// What changes the pending reminders makes no container: who mistypes one would wait in vain.
ExitCode inContainer(Context& context, ExitCode (*work)(Context&)) {
  const std::optional<std::string> trouble = missingContainer(context.platform.files);
  return trouble ? context.refuse(*trouble) : work(context);
}

// What was done, though the disk may forget it, is done.
ExitCode told(Context& context, const SaveOutcome& outcome, const char* nothing) {
  if (!outcome.isSaved()) return context.refuse(tr(nothing, outcome.why));
  if (!outcome.why.empty()) context.warn(outcome.why);
  return context.done();
}

ExitCode schedule(Context& context) {
  context.warnIfNoDatabase();
  const auto manager = context.openManager();
  const bool enabled = manager->notifySettings().enabled;
  if (!enabled && context.platform.settings.problem().empty()) {
    if (!context.options.json) context.printLine(tr("Reminders are off; nothing was scheduled"));
    return context.done();
  }
  SaveOutcome outcome;
  manager->scheduleRemindMeNotifications(hearInto(outcome));
  if (context.store.failure()) return context.doneReading();
  if (outcome.isSaved() && !context.options.json) {
    std::size_t count = 0;
    context.platform.notifications.pendingRequests(
        [&](const auto& pending) { count = pending.size(); }, [](const auto&) {});
    context.printLine(
        trPlural("Pending reminders: %1", "Pending reminders: %1", count, std::to_string(count)));
  }
  return told(context, outcome, marked("nothing was scheduled: %1"));
}

ExitCode cancel(Context& context) {
  SaveOutcome outcome;
  context.openManager()->cancelRemindMeNotifications(hearInto(outcome));
  return told(context, outcome, marked("nothing was cancelled: %1"));
}

ExitCode deliverOnce(Context& context) {
  const Delivery delivery = deliverDueNotifications(context.platform, *context.notifications);
  switch (delivery.state) {
    case Delivery::State::kDone:
      return context.done();
    case Delivery::State::kNoService:
      return context.refuse(tr("no notification service is running; what is due stays pending"));
    case Delivery::State::kFailed:
      break;
  }
  return context.refuse(delivery.why);
}

ExitCode watch(Context& context) {
  return watchNotifications(context.platform, *context.notifications, reminderActions(context))
             ? ExitCode::kDone
             : context.refuse(tr("the pending reminders cannot be kept in this container"));
}

ExitCode deliver(Context& context, bool keepWatching) {
  if (context.notifications == nullptr) {
    const std::optional<std::string> program = sessionProgram();
    return context.refuse(program
                              ? become(*program, context.arguments)
                              : tr("libexec/brevant-session, which shows reminders, is missing"));
  }
  return inContainer(context, keepWatching ? watch : deliverOnce);
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
      .run([](Context& context) { return inContainer(context, schedule); });
  reminders.command("cancel", "Remove the pending reminders", "brevant reminders cancel")
      .run([](Context& context) { return inContainer(context, cancel); });
  reminders.command("pending", "List the pending reminders", "brevant reminders pending --json")
      .query(printPending);

  const Command delivering =
      reminders.command("deliver", "Show what is due on the desktop and drop it",
                        "brevant reminders deliver --watch");
  const auto keepWatching =
      delivering.flag("--watch",
                      "Keep doing so until told to end with SIGTERM; only then with "
                      "buttons to stop and pause what runs");
  delivering.run([keepWatching](Context& context) { return deliver(context, *keepWatching); });
}

}  // namespace brevant
