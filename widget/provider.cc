// SPDX-License-Identifier: MIT
#include "widget/provider.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/clock.h"
#include "platform/fatal_error.h"
#include "widget/resource_image.h"

namespace brevant {
namespace {

template <typename Value>
const Value& required(const std::optional<Value>& value, std::string_view absence) {
  if (!value) fatalError(absence);
  return *value;
}

Date startOf(const WidgetActivity& activity) {
  return required(activity.start, "a running activity has no start");
}

}  // namespace

Provider::Provider(const Platform& platform, std::unique_ptr<WidgetManager> activityManager)
    : platform_(platform), activityManager_(std::move(activityManager)) {
  if (!activityManager_) fatalError("the timeline provider has no activity manager");
}

WidgetContent Provider::placeholder() const {
  return stillEntry("a", "Sleep", "cat_111@2x.png");
}

void Provider::getSnapshot(const std::function<void(WidgetContent)>& completion) const {
  completion(placeholder());
}

void Provider::getTimeline(const TimelineCompletion<WidgetContent>& completion) const {
  const ActivityRef activity = earliestRunning(activityManager_->findRunningActivities());
  if (!activity) return completion({{stillEntry("", "", "cat_1.png")}});

  const TypeRef category = categoryOf(*activity);
  // Unlike the empty state, this delivers nothing: the host goes on showing what it has.
  if (!category) return;

  if (!activity->intervals) return completion({});
  completion({{entry(*activity, *category)}});
}

TypeRef Provider::categoryOf(const WidgetActivity& activity) const {
  return activity.categoryGuid ? activityManager_->findById(*activity.categoryGuid) : nullptr;
}

WidgetContent Provider::entry(const WidgetActivity& activity, const WidgetType& category) const {
  const std::uint64_t duration = totalDuration(*activity.intervals);
  const std::string& guid = required(activity.guid, "the running activity has no guid");
  const std::string& name = required(category.name, "the running activity's category has no name");
  const ImageRef icon = activityManager_->imageForType(category);
  if (!icon) fatalError("the running activity's category has no icon");
  return {guid, platform_.clock.now(), name, icon, startOf(activity), duration};
}

// An entry that shows no time: the sample, or nothing running.
WidgetContent Provider::stillEntry(std::string guid, std::string name,
                                   const std::string& imageName) const {
  const Date now = platform_.clock.now();
  return {
      std::move(guid), now, std::move(name), resourceImage(platform_.bundle, imageName), now, 0};
}

ActivityRef earliestRunning(const ActivityList& activities) {
  ActivityList running;
  std::copy_if(activities.begin(), activities.end(), std::back_inserter(running),
               [](const ActivityRef& each) { return each->state == kStateRunning; });
  const auto first = std::min_element(
      running.begin(), running.end(),
      [](const ActivityRef& a, const ActivityRef& b) { return startOf(*a) < startOf(*b); });
  return first == running.end() ? nullptr : *first;
}

std::uint64_t totalDuration(const IntervalList& intervals) {
  std::uint64_t total = 0;
  for (const auto& interval : intervals) {
    const std::uint64_t duration = interval->duration();
    if (duration > std::numeric_limits<std::uint64_t>::max() - total) {
      fatalError("the total duration of the running activity is beyond 64 bits");
    }
    total += duration;
  }
  return total;
}

}  // namespace brevant
