// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/delivery_wakeup.h"
#include "platform/linux/notification_service.h"
#include "platform/platform.h"

namespace brevant {

// What a notification offers to do, for a program that stays to hear of it. Each may be missing.
struct NotificationActions {
  // The buttons of a notification that is about to be shown.
  std::function<std::vector<NotificationButton>()> buttons{};
  // One of them was pressed.
  std::function<void(const std::string& operation)> perform{};
  // Brings the pending requests up to date; called when nothing is due, at the start and when one
  // of these files changed. Answers after what time it is to be called again at the latest.
  std::function<Seconds()> keepScheduled{};
  std::vector<WatchedFile> files{};
};

struct Delivery {
  enum class State {
    kDone,       // nothing that is due is left
    kNoService,  // something is due, but no notification service is there to show it
    kFailed,     // the container cannot be used, or what was shown not be dropped
  };

  State state = State::kDone;
  std::string why{};  // of what failed

  bool operator==(const Delivery&) const = default;
};

// Shows the pending requests that are due and drops them. Those that are over an hour late are
// dropped unseen, with a log line, and so are those whose time was over before they were added.
// Only one process delivers at a time, so none is shown twice; one that is killed in between leaves
// what it had not shown, and may leave the last that it had. Makes nothing in the container when
// nothing is pending. Without `actions` the notifications have no buttons.
Delivery deliverDueNotifications(const Platform& platform, NotificationService& service,
                                 const NotificationActions& actions = {});

// Delivers each request when it comes due, new ones as well, until the process gets SIGTERM or
// SIGINT. Follows changes of the clock and of the system's time zone, and counts the time that the
// machine was asleep. What was shown but cannot be dropped is not shown again, and dropped as soon
// as that works. False when the container cannot be used from the start.
[[nodiscard]] bool watchNotifications(const Platform& platform, NotificationService& service,
                                      const NotificationActions& actions);

}  // namespace brevant
