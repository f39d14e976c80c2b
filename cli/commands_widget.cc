// SPDX-License-Identifier: MIT
#include "cli/change.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/json_widget.h"
#include "cli/terminal_text.h"
#include "cli/text_table.h"
#include "cli/text_time.h"
#include "cli/words.h"
#include "live/live_activity_widget.h"
#include "live/stop_activity_live_intent.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"
#include "platform/task_queue.h"
#include "widget/stop_activity_intent.h"
#include "widget/widgets_collection.h"

namespace brevant {
namespace {

ExitCode printWidgets(Context& context) {
  const WidgetsCollection collection(
      context.platform, [&context] { return LiveActivityWidget(context.platform).bundled(); });
  const std::vector<BundledWidget> widgets = collection.body();
  if (context.options.json) {
    context.print(widgetsJson(widgets));
    return ExitCode::kDone;
  }
  TextTable table;  // as the widget gallery shows them: in no other language
  for (const BundledWidget& widget : widgets) {
    table.add({{widget.kind},
               {widget.homeScreen ? widget.homeScreen->displayName : ""},
               {widget.homeScreen ? widget.homeScreen->description : ""}});
  }
  context.print(table.text(Colors::kNone));
  return ExitCode::kDone;
}

std::string textOf(const WidgetContent& entry, const Context& context) {
  if (entry.guid.empty()) {
    return context.platform.bundle.localizedString("complication.no_running") + '\n';
  }
  const std::uint64_t elapsed = wholeSeconds((entry.date - entry.start).count());
  std::string line = printable(entry.name) + "  " + durationText(elapsed);
  if (entry.duration != 0) {
    line += "  " + tr("%1 in all", durationText(saturatingSum(elapsed, entry.duration)));
  }
  return line + '\n';
}

ExitCode printTimeline(Context& context) {
  context.warnIfNoDatabase();
  const StaticConfiguration widget =
      RunningWidget(context.platform, context.store.listener()).body();
  std::optional<Timeline<WidgetContent>> timeline;
  widget.provider->getTimeline(
      [&timeline](Timeline<WidgetContent> delivered) { timeline = std::move(delivered); });
  if (context.options.json) {
    context.print(
        timelineJson(widget, timeline, context.options.colorScheme, context.platform.images));
  } else if (!timeline) {
    context.warn(tr("the running activity's category is not there, so there is nothing to show"));
  } else {
    for (const WidgetContent& entry : timeline->entries) context.print(textOf(entry, context));
  }
  return context.doneReading();
}

ExitCode printEntry(Context& context, const StaticConfiguration& widget,
                    const WidgetContent& entry) {
  const GlobalOptions& options = context.options;
  if (options.json) {
    context.print(entryJson(widget, entry, options.colorScheme, context.platform.images));
  } else {
    context.print(textOf(entry, context));
  }
  return ExitCode::kDone;
}

ExitCode printSnapshot(Context& context) {
  const StaticConfiguration widget =
      RunningWidget(context.platform, context.store.listener()).body();
  ExitCode code = ExitCode::kNotDone;
  widget.provider->getSnapshot(
      [&](const WidgetContent& entry) { code = printEntry(context, widget, entry); });
  return code;
}

ExitCode printPlaceholder(Context& context) {
  const StaticConfiguration widget =
      RunningWidget(context.platform, context.store.listener()).body();
  return printEntry(context, widget, widget.provider->placeholder());
}

// An unknown guid or operation is none of the intent's concern; an activity that ended meanwhile is
// news to whoever pressed the button.
std::optional<std::string> troubleWithIntent(Context& context, const std::string& activityId,
                                             const std::string& operation) {
  if (auto missing = missingDatabase(context.platform.files)) return nothingChanged(*missing);
  if (auto trouble = troubleWithChange(context)) return trouble;
  if (context.store.end() || (operation != "stop" && operation != "pause")) return std::nullopt;
  const std::optional<bool> isThere = context.openManager()->dao->hasActivity(activityId);
  if (isThere == false) return std::nullopt;
  if (!isThere) return troubleWithChange(context);
  return nothingChanged(tr("the activity %1 is not running or paused", activityId));
}

ExitCode performIntent(Context& context, const std::string& name, const std::string& activityId,
                       const std::string& operation) {
  if (name == StopActivityIntent::kName) {
    StopActivityIntent(activityId, operation).perform(context.platform, context.store.listener());
  } else {
    StopActivityLiveIntent(activityId, operation)
        .perform(context.platform, context.store.listener());
  }
  context.platform.tasks.waitUntilIdle();
  const auto trouble = troubleWithIntent(context, activityId, operation);
  return trouble ? context.refuse(*trouble) : context.done();
}

}  // namespace

void addWidgetCommands(CommandLine& line) {
  line.command("widgets", "List the widgets that the system version has",
               "brevant widgets --system-version 16.0")
      .query(printWidgets);
  line.command("timeline", "Show the widget's timeline with its views", "brevant timeline --json")
      .query(printTimeline);
  line.command("snapshot", "Show the widget's entry for the gallery", "brevant snapshot --json")
      .query(printSnapshot);
  line.command("placeholder", "Show the widget's entry before there is any",
               "brevant placeholder --json")
      .query(printPlaceholder);

  const Command intent = line.command("intent", "Perform what a widget's button asks for",
                                      "brevant intent StopActivityIntent GUID pause");
  const auto name = intent.word("NAME", "The button's intent",
                                {StopActivityIntent::kName, StopActivityLiveIntent::kName});
  const auto activityId = intent.text("ACTIVITY_ID", "The activity's guid");
  const auto operation = intent.text("OPERATION", "stop or pause; nothing else does anything");
  intent.run([name, activityId, operation](Context& context) {
    return performIntent(context, *name, *activityId, *operation);
  });
}

}  // namespace brevant
