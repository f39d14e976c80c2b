// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "manager/widget_manager.h"
#include "platform/platform.h"
#include "platform/timeline.h"
#include "widget/widget_content.h"

namespace brevant {

// The home-screen widget's timeline provider: turns the shared time log into one entry that is
// reloaded "at end". It only reads, and keeps nothing but its manager, which it asks anew for every
// timeline. Each call runs to its end on the caller's thread, one at a time.
//
// What an entry cannot do without is a fatal error when it is absent: the activity's guid and
// start, the category's name, and every image.
class Provider {
 public:
  Provider(const Platform& platform, std::unique_ptr<WidgetManager> activityManager);

  // The same sample, whatever the database holds.
  [[nodiscard]] WidgetContent placeholder() const;
  void getSnapshot(const std::function<void(WidgetContent)>& completion) const;

  // The running activity that started first, or the empty entry when none runs. Without the
  // activity's category nothing is delivered at all; without its list of intervals, a timeline
  // without entries.
  void getTimeline(const TimelineCompletion<WidgetContent>& completion) const;

 private:
  [[nodiscard]] TypeRef categoryOf(const WidgetActivity& activity) const;
  [[nodiscard]] WidgetContent entry(const WidgetActivity& activity,
                                    const WidgetType& category) const;
  [[nodiscard]] WidgetContent stillEntry(std::string guid, std::string name,
                                         const std::string& imageName) const;

  Platform platform_;
  std::unique_ptr<WidgetManager> activityManager_;
};

// The activity of the list that runs and started first, the first of several at the same time; null
// when none runs. Where several run, a start that is absent is a fatal error.
ActivityRef earliestRunning(const ActivityList& activities);

// Seconds of all intervals together; a sum beyond 64 bits is a fatal error.
std::uint64_t totalDuration(const IntervalList& intervals);

}  // namespace brevant
