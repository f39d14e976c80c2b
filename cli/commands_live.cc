// SPDX-License-Identifier: MIT
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/files.h"
#include "cli/json_widget.h"
#include "cli/live_content.h"
#include "cli/terminal_text.h"
#include "cli/text_table.h"
#include "cli/text_time.h"
#include "cli/words.h"
#include "live/activity_attribute.h"
#include "live/live_activity_widget.h"
#include "platform/clock.h"
#include "platform/live_activities.h"
#include "platform/process_info.h"

namespace brevant {
namespace {

// The content state on stdin, decoded and coded anew: what is stored is always well formed.
std::variant<std::string, Unreadable> codedInput(const Context& context) {
  const auto input = readInput();
  if (const auto* error = std::get_if<Unreadable>(&input)) return *error;
  const Decoded<ContentState> decoded =
      ContentState::decoded(context.platform.coder, std::get<std::string>(input));
  if (const auto* error = std::get_if<DecodingError>(&decoded)) {
    return Unreadable{tr("the content state does not decode: %1", error->message)};
  }
  std::optional<std::string> coded =
      std::get<ContentState>(decoded).encoded(context.platform.coder);
  if (!coded) return Unreadable{tr("the content state cannot be encoded")};
  return std::move(*coded);
}

ExitCode decode(Context& context) {
  const auto coded = codedInput(context);
  if (const auto* error = std::get_if<Unreadable>(&coded)) return context.refuse(error->why);
  context.printLine(std::get<std::string>(coded));
  return ExitCode::kDone;
}

ExitCode startWith(Context& context, const std::string& content) {
  const auto result = context.platform.liveActivities.start(content);
  if (const auto* error = std::get_if<LiveActivityError>(&result)) {
    return context.refuse(error->message);
  }
  const std::string& id = std::get<StartedLiveActivity>(result).id;
  context.print(context.options.json ? liveActivityIdJson(id) : id + '\n');
  return ExitCode::kDone;
}

ExitCode start(Context& context, const std::optional<std::string>& activity) {
  // It is not made on the way: who mistypes it would start something that no host ever shows.
  if (const auto trouble = missingContainer(context.platform.files)) {
    return context.refuse(*trouble);
  }
  if (activity) {
    const auto content = runningContent(context, *activity);
    const auto* refused = std::get_if<ExitCode>(&content);
    return refused == nullptr ? startWith(context, std::get<std::string>(content)) : *refused;
  }
  const auto coded = codedInput(context);
  if (const auto* error = std::get_if<Unreadable>(&coded)) return context.refuse(error->why);
  return startWith(context, std::get<std::string>(coded));
}

LiveActivityList listed(Context& context, bool endedToo) {
  const LiveActivityCenter& center = context.platform.liveActivities;
  if (!context.warnIfNoContainer()) return {};
  return endedToo ? center.allActivities() : center.activities();
}

ExitCode list(Context& context, bool endedToo) {
  const LiveActivityList list = listed(context, endedToo);
  if (const auto* error = std::get_if<LiveActivityError>(&list)) {
    return context.refuse(error->message);
  }
  const auto& activities = std::get<std::vector<LiveActivity>>(list);
  if (context.options.json) {
    context.print(liveActivitiesJson(activities));
    return ExitCode::kDone;
  }
  TextTable table;
  for (const LiveActivity& activity : activities) {
    const auto state = ContentState::decoded(context.platform.coder, activity.contentState);
    const auto* content = std::get_if<ContentState>(&state);
    const bool isActive = activity.state == LiveActivityState::kActive;
    table.add(
        {{printable(activity.id)},
         {isActive ? tr("active") : tr("ended")},
         {content == nullptr ? "" : printable(content->typeName)},
         {content == nullptr ? "" : dateText(dateOf(content->start), context.platform.calendar)}});
  }
  context.print(table.text(Colors::kNone));
  return ExitCode::kDone;
}

ExitCode changed(Context& context, const std::string& id,
                 const std::optional<LiveActivityError>& error) {
  if (!error) return context.done();
  const bool isGone = error->kind == LiveActivityError::Kind::kNotRunning;
  return context.refuse(isGone ? tr("there is no running Live Activity %1", id) : error->message);
}

ExitCode update(Context& context, const std::string& id) {
  const auto coded = codedInput(context);
  if (const auto* error = std::get_if<Unreadable>(&coded)) return context.refuse(error->why);
  return changed(context, id,
                 context.platform.liveActivities.update(id, std::get<std::string>(coded)));
}

ExitCode end(Context& context, const std::string& id) {
  return changed(context, id, context.platform.liveActivities.end(id, DismissalPolicy::kImmediate));
}

std::variant<LiveActivity, LiveActivityError> chosen(const Context& context,
                                                     const std::optional<std::string>& id) {
  LiveActivityList list = context.platform.liveActivities.activities();
  if (auto* error = std::get_if<LiveActivityError>(&list)) return std::move(*error);
  for (LiveActivity& activity : std::get<std::vector<LiveActivity>>(list)) {
    if (!id || activity.id == *id) return std::move(activity);
  }
  return LiveActivityError{LiveActivityError::Kind::kNotRunning,
                           id ? tr("there is no running Live Activity %1", *id)
                              : tr("there is no running Live Activity")};
}

ExitCode show(Context& context, const std::optional<std::string>& id) {
  if (context.platform.process.systemVersion() < kLiveActivities) {
    return context.refuse(
        tr("system version %1 has no Live Activities", context.options.systemVersion));
  }
  const auto choice = chosen(context, id);
  if (const auto* none = std::get_if<LiveActivityError>(&choice)) {
    return context.refuse(none->message);
  }
  const auto& activity = std::get<LiveActivity>(choice);
  const auto decoded = ContentState::decoded(context.platform.coder, activity.contentState);
  if (const auto* error = std::get_if<DecodingError>(&decoded)) {
    return context.refuse(tr("the content state does not decode: %1", error->message));
  }
  const auto& state = std::get<ContentState>(decoded);
  if (!context.options.json) {
    const double elapsed = (context.platform.clock.now() - dateOf(state.start)).count();
    context.printLine(printable(state.typeName) + "  " + durationText(wholeSeconds(elapsed)));
    return ExitCode::kDone;
  }
  const LiveActivityWidget widget(context.platform);
  context.print(presentationJson(widget.kind, activity,
                                 widget.body(state, context.options.colorScheme),
                                 context.platform.images));
  return ExitCode::kDone;
}

}  // namespace

void addLiveCommands(CommandLine& line) {
  const Command live =
      line.group("live", "Start, show and end Live Activities", "brevant live list");
  const Command starting = live.command("start", "Start one with the content state on stdin",
                                        "brevant live start --activity GUID");
  const auto activity = starting.optionalText(
      "--activity", "The guid of a running activity, whose content then is made from the log");
  starting.run([activity](Context& context) { return start(context, *activity); });

  const Command listing =
      live.command("list", "List the running Live Activities", "brevant live list --all --json");
  const auto all = listing.flag("--all", "Also those that ended within a day");
  listing.query([all](Context& context) { return list(context, *all); });

  const Command updating = live.command("update", "Replace the content state by that on stdin",
                                        "brevant live update ID < content.json");
  const auto updated = updating.text("ID", "The Live Activity");
  updating.run([updated](Context& context) { return update(context, *updated); });

  const Command ending = live.command("end", "End a Live Activity", "brevant live end ID");
  const auto ended = ending.text("ID", "The Live Activity");
  ending.run([ended](Context& context) { return end(context, *ended); });

  const Command showing =
      live.command("show", "Show the presentations of one", "brevant live show --json");
  const auto shown = showing.optionalText("ID", "The Live Activity (default: the first)");
  showing.query([shown](Context& context) { return show(context, *shown); });

  live.command("decode", "Check the content state on stdin and answer it coded anew",
               "brevant live decode < content.json")
      .query(decode);
}

}  // namespace brevant
