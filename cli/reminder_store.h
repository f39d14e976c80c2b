// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/log.h"
#include "platform/notifications.h"
#include "platform/platform.h"

namespace brevant {

class Context;

// The pending reminders, for a command that says in its own one line what goes wrong with them.
// Neither scheduling, cancelling nor delivering answers that: the store tells its log, which is
// this object instead of stderr. For a container that is there.
class ReminderStore {
 public:
  explicit ReminderStore(const Context& context);

  // The context's platform with this store in the place of its own.
  Platform platform() const;

  [[nodiscard]] std::vector<NotificationRequest> pending() const;

  // What went wrong first, with the name of the file.
  const std::optional<std::string>& problem() const { return log_.first; }

 private:
  struct FirstLine : Log {
    void write(std::string_view line) override {
      if (!first) first = line;
    }
    std::optional<std::string> first;
  };

  const Platform context_;
  FirstLine log_;
  const std::unique_ptr<UserNotificationCenter> center_;
};

}  // namespace brevant
