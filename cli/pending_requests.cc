#include "cli/pending_requests.h"

#include <future>

namespace brevant {

std::vector<NotificationRequest> pendingRequests(UserNotificationCenter& center) {
  std::promise<std::vector<NotificationRequest>> answer;
  center.pendingRequests(
      [&answer](const std::vector<NotificationRequest>& requests) { answer.set_value(requests); });
  return answer.get_future().get();
}

}  // namespace brevant
