// SPDX-License-Identifier: MIT
#include "cli/change.h"
#include "cli/commands.h"
#include "cli/context.h"
#include "cli/words.h"
#include "live/activity_attribute.h"
#include "platform/live_activities.h"
#include "widget/deep_link.h"

namespace brevant {
namespace {

// The activity is changed by now: what goes wrong here is told, and no failure of the command.
void warnNotEnded(const Context& context, const LiveActivityError& error) {
  context.warn(tr("the Live Activity could not be ended: %1", error.message));
}

void endLiveActivity(Context& context, const std::string& guid) {
  const LiveActivityList list = context.platform.liveActivities.activities();
  if (const auto* error = std::get_if<LiveActivityError>(&list)) {
    return warnNotEnded(context, *error);
  }
  for (const LiveActivity& activity : std::get<std::vector<LiveActivity>>(list)) {
    const auto decoded = ContentState::decoded(context.platform.coder, activity.contentState);
    const auto* state = std::get_if<ContentState>(&decoded);
    if (state == nullptr || state->guid != guid) continue;
    const auto error =
        context.platform.liveActivities.end(activity.id, DismissalPolicy::kImmediate);
    if (error) warnNotEnded(context, *error);
    return;
  }
}

ExitCode open(Context& context, const std::string& url) {
  const std::optional<DeepLink> link = DeepLink::parse(url);
  if (!link) return context.refuse(nothingChanged(tr("this is no link to an activity: %1", url)));
  const Change change = link->action == DeepLinkAction::kPause ? Change::kPause : Change::kStop;
  const ChangeResult result = changeActivity(context, link->guid, change);
  if (const auto* refusal = std::get_if<NotChanged>(&result)) return context.refuse(refusal->why);
  if (link->type == DeepLinkType::kLiveActivity) endLiveActivity(context, link->guid);
  return context.done();
}

}  // namespace

void addLinkCommand(CommandLine& line) {
  const Command opening =
      line.command("open", "Do what a widget's link asks for",
                   "brevant open 'brevant:///widget?type=running&action=pause&activity=GUID'");
  const auto url = opening.text("URL", "The link");
  opening.run([url](Context& context) { return open(context, *url); });
}

}  // namespace brevant
