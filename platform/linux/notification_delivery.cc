// SPDX-License-Identifier: MIT
#include "platform/linux/notification_delivery.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/clock.h"
#include "platform/file_manager.h"
#include "platform/linux/delivery_wakeup.h"
#include "platform/linux/durable_file.h"
#include "platform/linux/file_lock.h"
#include "platform/linux/next_notification.h"
#include "platform/log.h"
#include "platform/notifications.h"

namespace brevant {
namespace {

using Requests = std::vector<NotificationRequest>;

constexpr Seconds kTooLate{3600};
constexpr Seconds kRetry{5};
constexpr Seconds kForEver = Seconds::max();

// The folder of the notification store, made when it is missing; absent when it cannot be.
std::optional<std::string> storeFolder(const Platform& platform) {
  const std::optional<FileUrl> container = platform.files.containerUrl(kAppGroupIdentifier);
  if (!container) return std::nullopt;
  std::string folder = container->path() + "Notifications";
  return makeDirectories(folder).empty() ? std::optional(std::move(folder)) : std::nullopt;
}

// A trigger names its year, so it comes once, also one that repeats: what was handled is dropped.
class Deliverer {
 public:
  Deliverer(const Platform& platform, NotificationService& service,
            const NotificationActions& actions)
      : platform_(platform), service_(service), actions_(actions) {}

  Delivery deliver() {
    if (readPending().empty()) return readProblem_.empty() ? Delivery() : failed(readProblem_);
    const std::optional<std::string> folder = storeFolder(platform_);
    if (!folder) return failed("the container cannot be used");
    const FileLock lock(*folder + "/delivery.lock");
    if (!lock.held()) return failed(lock.problem());
    std::string problem = dropHandled();
    // Asks the store anew for each, since one may be cancelled while another is being shown.
    while (const std::optional<NextNotification> next = unhandled()) {
      if (next->due && platform_.clock.now() < *next->due) break;
      if (!handle(*next)) return {Delivery::State::kNoService};
      handled_.push_back({next->request, platform_.clock.now()});
      problem = dropHandled();
    }
    return problem.empty() ? Delivery() : failed(std::move(problem));
  }

  // How long nothing is to be done after a delivery that is done; absent when nothing is pending.
  std::optional<Seconds> delay() {
    const std::optional<NextNotification> next = unhandled();
    if (!next) return std::nullopt;
    return next->due ? *next->due - platform_.clock.now() : Seconds(0);
  }

 private:
  using Buttons = std::vector<NotificationButton>;
  struct Handled {
    NotificationRequest request;
    Date at;
  };

  bool isHandled(const NotificationRequest& request) const {
    return std::any_of(handled_.begin(), handled_.end(),
                       [&](const Handled& each) { return each.request == request; });
  }

  static Delivery failed(std::string why) { return {Delivery::State::kFailed, std::move(why)}; }

  Requests readPending() {
    Requests result;
    platform_.notifications.pendingRequests([&](const auto& pending) { result = pending; },
                                            [this](const auto& read) { readProblem_ = read.why; });
    return result;
  }

  std::optional<NextNotification> unhandled() {
    Requests requests = readPending();
    std::erase_if(requests, [this](const auto& each) { return isHandled(each); });
    return nextNotification(requests);
  }

  // What cannot be dropped is remembered, or it would be shown again; so is what seems to be gone,
  // while it could be shown if it came back: the files of a container may be put back.
  std::string dropHandled() {
    UserNotificationCenter& center = platform_.notifications;
    Requests left;
    const auto drop = [&](const Requests& pending) {
      left = pending;
      std::erase_if(left, [this](const auto& each) { return !isHandled(each); });
      std::vector<std::string> identifiers;
      for (const auto& each : left) identifiers.push_back(each.identifier);
      center.removePendingRequests(identifiers);
    };
    SaveOutcome dropped;
    center.pendingRequests(drop, [&](const auto& outcome) { dropped = outcome; });
    if (!dropped.isSaved()) return dropped.why;
    std::erase_if(handled_, [&](const Handled& each) {
      return platform_.clock.now() - each.at > kTooLate &&
             std::find(left.begin(), left.end(), each.request) == left.end();
    });
    return "";
  }

  // False when nobody is there to show it.
  bool handle(const NextNotification& next) {
    const NotificationContent& content = next.request.content;
    if (next.due && platform_.clock.now() - *next.due <= kTooLate) {
      return service_.show(content, actions_.buttons ? actions_.buttons() : Buttons());
    }
    platform_.log.write((next.due ? "A reminder came over an hour late and was dropped: "
                                  : "A reminder was dropped, for its time was over before it was "
                                    "added: ") +
                        content.title);
    return true;
  }

  const Platform platform_;
  NotificationService& service_;
  const NotificationActions& actions_;
  std::vector<Handled> handled_;
  std::string readProblem_;  // why they could not be read last; empty when they could
};

// Says what keeps reminders from being shown and dropped when that begins, not each time it is
// found out.
class Report {
 public:
  void note(const Delivery& delivery, Log& log) {
    if (std::exchange(last_, delivery) == delivery) return;
    if (delivery.state == Delivery::State::kNoService) {
      log.write("No notification service is running; reminders wait for it for an hour");
    } else if (delivery.state == Delivery::State::kFailed) {
      log.write("Reminders cannot be delivered for now: " + delivery.why);
    }
  }

 private:
  Delivery last_;
};

}  // namespace

Delivery deliverDueNotifications(const Platform& platform, NotificationService& service,
                                 const NotificationActions& actions) {
  return Deliverer(platform, service, actions).deliver();
}

bool watchNotifications(const Platform& platform, NotificationService& service,
                        const NotificationActions& actions) {
  const std::optional<std::string> folder = storeFolder(platform);
  if (!folder) return false;
  std::vector<WatchedFile> files = actions.files;
  files.push_back({*folder + "/requests.json", WatchedFile::Written::kAtOnce});
  DeliveryWakeup wakeup(std::move(files));
  Deliverer deliverer(platform, service, actions);
  Report report;
  Seconds delay;
  do {
    wakeup.watch();
    const Delivery delivery = deliverer.deliver();
    report.note(delivery, platform.log);
    service.handlePressed([&](const std::string& operation) {
      if (actions.perform) actions.perform(operation);
    });
    delay = kRetry;
    if (delivery.state == Delivery::State::kDone) {
      delay = actions.keepScheduled ? actions.keepScheduled() : kForEver;
      delay = std::min(delay, deliverer.delay().value_or(kForEver));
    }
  } while (wakeup.sleep(delay, service.descriptor()));
  return true;
}

}  // namespace brevant
