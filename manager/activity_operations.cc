// SPDX-License-Identifier: MIT

// The operations on activities, and the signal to the main application that follows each.
#include <array>
#include <utility>

#include "manager/widget_manager.h"
#include "platform/clock.h"
#include "platform/cloud_database.h"
#include "platform/file_manager.h"
#include "platform/process_info.h"
#include "platform/shared_settings.h"
#include "store/transaction.h"

namespace brevant {
namespace {

std::uint64_t nowInWholeSeconds(const Clock& clock) {
  return wholeSeconds(secondsSince1970(clock.now()));
}

}  // namespace

void WidgetManager::inOneTransaction(const std::function<void()>& work) {
  heldUpdates_ = 0;
  {
    Transaction transaction(*dao);
    if (transaction.isOpen()) work();
    transaction.commit();
  }
  for (int held = std::exchange(heldUpdates_, std::nullopt).value_or(0); held > 0; --held) {
    sendUpdateToApp();
  }
}

void WidgetManager::startActivity(const std::string& categoryGuid) {
  WidgetActivity activity;
  activity.start = platform_.clock.now();
  activity.categoryGuid = categoryGuid;
  activity.state = kStateRunning;
  activity.updatedOn = nowInWholeSeconds(platform_.clock);
  dao->save(activity);
  sendUpdateToApp();
}

void WidgetManager::stopActivity(WidgetActivity& activity) {
  finish(activity, kStateStopped);
}

void WidgetManager::pauseActivity(const WidgetActivity& activity) {
  finish(*activity.copy(), kStatePaused);
}

void WidgetManager::resumeActivity(const WidgetActivity& activity) {
  const ActivityRef copy = activity.copy();
  const std::uint64_t now = nowInWholeSeconds(platform_.clock);
  copy->state = kStateRunning;
  copy->start = platform_.clock.now();
  copy->updatedOn = now;
  dao->update(*copy);
  sendUpdateToApp();
}

void WidgetManager::finish(WidgetActivity& activity, std::int32_t state) {
  const std::uint64_t now = nowInWholeSeconds(platform_.clock);
  const bool running = activity.state == kStateRunning;
  if (running && closeRunningStretch(activity, now) == Closing::kNothingLeft) {
    dao->removeLogSilently(activity);
  } else {
    activity.state = state;
    activity.start.reset();
    activity.updatedOn = now;
    dao->update(activity);
  }
  sendUpdateToApp();
}

WidgetManager::Closing WidgetManager::closeRunningStretch(WidgetActivity& activity,
                                                          std::uint64_t now) {
  auto interval = std::make_shared<WidgetInterval>();
  interval->from = activity.start;
  interval->to = platform_.clock.now();
  interval->updatedOn = now;
  if (interval->duration() < minDuration()) {
    const bool hasEarlier = activity.intervals && !activity.intervals->empty();
    return hasEarlier ? Closing::kClosed : Closing::kNothingLeft;
  }
  if (!activity.intervals) activity.intervals.emplace();
  activity.intervals->push_back(std::move(interval));
  return Closing::kClosed;
}

std::uint64_t WidgetManager::minDuration() const {
  constexpr std::array<std::uint64_t, 3> kSeconds{10, 60, 300};
  const std::int64_t choice = platform_.settings.integer("activityMinDuration");
  return choice >= 1 && choice <= 3 ? kSeconds[static_cast<std::size_t>(choice - 1)] : 0;
}

void WidgetManager::sendUpdateToApp() {
  if (!isiOSAppOnMac()) return;
  if (heldUpdates_) {
    ++*heldUpdates_;
    return;
  }
  const CloudRecord record{"WidgetUpdate", generateGUID(), {{"deviceGuid", ""}}};
  platform_.cloud.save(kCloudContainerIdentifier, record, [](const std::string&) {});
}

bool WidgetManager::isiOSAppOnMac() const {
  return platform_.process.isiOSAppOnMac();
}

}  // namespace brevant
