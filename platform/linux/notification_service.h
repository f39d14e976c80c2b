// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/notifications.h"

namespace brevant {

// A button of a notification: the operation it stands for and its title.
struct NotificationButton {
  std::string operation;
  std::string title;

  bool operator==(const NotificationButton&) const = default;
};

// The desktop's notification service. It comes and goes as the desktop pleases: every call asks for
// it anew. One thread.
class NotificationService {
 public:
  using Pressed = std::function<void(const std::string& operation)>;

  virtual ~NotificationService() = default;

  // What the running service calls itself; absent when there is none.
  virtual std::optional<std::string> name() = 0;

  // False when no service took it; one that does not answer in time may have shown it and has it.
  virtual bool show(const NotificationContent& content,
                    const std::vector<NotificationButton>& buttons) = 0;

  // A descriptor that is readable when a button was pressed; -1 when there is nothing to wait for.
  virtual int descriptor() const = 0;

  // Calls `pressed` for the buttons that were pressed meanwhile.
  virtual void handlePressed(const Pressed& pressed) = 0;
};

// The service on the session's D-Bus.
std::unique_ptr<NotificationService> makeNotificationService();

}  // namespace brevant
