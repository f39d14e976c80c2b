// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/calendar.h"
#include "platform/save_outcome.h"

namespace brevant {

struct NotificationContent {
  std::string title;
  std::string body;
  std::map<std::string, std::string> userInfo;
  std::string sound;  // "default", or empty for none

  bool operator==(const NotificationContent&) const = default;
};

// Fires when the local time matches year to second of `components`, in the zone of that moment.
struct CalendarTrigger {
  DateComponents components;
  bool repeats = false;
  std::optional<Date> instant{};  // the one that is meant, where that local time occurs twice

  bool operator==(const CalendarTrigger&) const = default;
};

struct NotificationRequest {
  std::string identifier;
  NotificationContent content;
  CalendarTrigger trigger;
  std::optional<Date> added{};  // known of pending ones; a trigger never fires for a time before it

  bool operator==(const NotificationRequest&) const = default;
};

// The user's pending notification requests, shared between processes. Handlers and completions run
// on a thread of the platform's choosing, which may be the caller's, and may call back in.
class UserNotificationCenter {
 public:
  using Handler = std::function<void(const std::vector<NotificationRequest>&)>;
  using Completion = std::function<void(const SaveOutcome&)>;

  virtual ~UserNotificationCenter() = default;

  // Calls the handler with the requests in the order they were added. All that it removes and adds
  // is one change, stored when it returns, wholly or not at all. Where others change the requests
  // meanwhile it is called anew with what is pending then, and what it did before is forgotten. It
  // is not called when the requests cannot be read. `done` hears what became of it all. Completions
  // of what a handler starts are kept until the outermost handler's change is stored, and hear of
  // that.
  virtual void pendingRequests(Handler handler, Completion done) = 0;

  virtual void removePendingRequests(const std::vector<std::string>& identifiers) = 0;

  // A pending request with the same identifier is replaced.
  virtual void add(const NotificationRequest& request, Completion completion) = 0;
};

}  // namespace brevant
