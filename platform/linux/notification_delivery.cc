#include "platform/linux/notification_delivery.h"

#include <algorithm>
#include <optional>

#include "platform/clock.h"
#include "platform/file_manager.h"
#include "platform/linux/calendar.h"
#include "platform/linux/delivery_wakeup.h"
#include "platform/linux/durable_file.h"
#include "platform/log.h"
#include "platform/notifications.h"

namespace brevant {
namespace {

constexpr Seconds kTooLate{3600};
constexpr Seconds kServiceRetry{5};

std::vector<NotificationRequest> pendingRequests(UserNotificationCenter& center) {
  std::vector<NotificationRequest> result;
  center.pendingRequests([&](const auto& requests) { result = requests; });
  return result;
}

// The folder of the notification store; absent when there is no container to have one.
std::optional<std::string> storeFolder(const Platform& platform) {
  const std::optional<FileUrl> container = platform.files.containerUrl(kAppGroupIdentifier);
  if (!container) return std::nullopt;
  const std::string folder = container->path() + "Notifications";
  const std::string problem = makeDirectories(folder);
  if (problem.empty()) return folder;
  platform.log.write(problem);
  return std::nullopt;
}

struct NextRequest {
  NotificationRequest request;
  Date due;
};

// The pending request that comes due first, in the zone of this moment.
std::optional<NextRequest> nextRequest(const Platform& platform) {
  const std::unique_ptr<Calendar> calendar = makeCalendar();
  std::optional<NextRequest> next;
  for (NotificationRequest& each : pendingRequests(platform.notifications)) {
    const Date due = calendar->date(each.trigger.components);
    if (!next || due < next->due) next = NextRequest{std::move(each), due};
  }
  return next;
}

// A trigger names its year, so it comes once, also one that repeats: what was handled is dropped.
Delivery deliver(const Platform& platform, NotificationService& service,
                 const NotificationActions& actions) {
  const std::optional<std::string> folder = storeFolder(platform);
  if (!folder) return Delivery::kFailed;
  const FileLock lock(*folder + "/delivery.lock");
  if (!lock.held()) return Delivery::kFailed;
  // Asks the store anew for each, since one may be cancelled while another is being shown.
  while (const std::optional<NextRequest> next = nextRequest(platform)) {
    const Seconds late = platform.clock.now() - next->due;
    if (late < Seconds(0)) break;
    const NotificationRequest& request = next->request;
    if (late > kTooLate) {
      platform.log.write("A reminder came over an hour late and was dropped: " +
                         request.content.title);
    } else {
      const auto buttons = actions.buttons ? actions.buttons() : std::vector<NotificationButton>();
      if (!service.show(request.content, buttons)) return Delivery::kNoService;
    }
    platform.notifications.removePendingRequests({request.identifier});
    const auto left = pendingRequests(platform.notifications);
    if (std::find(left.begin(), left.end(), request) != left.end()) return Delivery::kFailed;
  }
  return Delivery::kDone;
}

// Says that nobody shows notifications when that begins, not each time it is found out.
class AbsenceReport {
 public:
  void note(Delivery delivery, Log& log) {
    if (delivery == Delivery::kNoService && !reported_) {
      log.write("No notification service is running; reminders wait for it for an hour");
    }
    reported_ = delivery == Delivery::kNoService;
  }

 private:
  bool reported_ = false;
};

}  // namespace

Delivery deliverDueNotifications(const Platform& platform, NotificationService& service,
                                 const NotificationActions& actions) {
  const Delivery delivery = deliver(platform, service, actions);
  AbsenceReport().note(delivery, platform.log);
  return delivery;
}

bool watchNotifications(const Platform& platform, NotificationService& service,
                        const NotificationActions& actions) {
  const std::optional<std::string> folder = storeFolder(platform);
  if (!folder) return false;
  DeliveryWakeup wakeup(*folder + "/requests.json");
  AbsenceReport absence;
  std::optional<Seconds> delay;
  do {
    wakeup.watch();
    const Delivery delivery = deliver(platform, service, actions);
    if (delivery == Delivery::kFailed) return false;
    absence.note(delivery, platform.log);
    service.handlePressed([&](const std::string& operation) {
      if (actions.perform) actions.perform(operation);
    });
    delay.reset();
    if (delivery == Delivery::kNoService)
      delay = kServiceRetry;
    else if (const auto next = nextRequest(platform))
      delay = next->due - platform.clock.now();
  } while (wakeup.sleep(delay, service.descriptor()));
  return true;
}

}  // namespace brevant
