// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/date.h"
#include "platform/linux/descriptor.h"

namespace brevant {

// Everything that a watch over notification requests sleeps on: a timer, a change of the requests,
// of the clock or of the time zone, a signal to end, and a descriptor of the caller's. While it
// lives, SIGTERM and SIGINT are blocked in the thread that made it and end its wait instead.
class DeliveryWakeup {
 public:
  // `requests` is the file to watch for; its folder exists.
  explicit DeliveryWakeup(std::string requests);
  ~DeliveryWakeup();
  DeliveryWakeup(const DeliveryWakeup&) = delete;
  DeliveryWakeup& operator=(const DeliveryWakeup&) = delete;

  // Looks out for changes from now on, also when the folder was made anew. To be called before the
  // requests are read.
  void watch();

  // Sleeps until something happened, `delay` is over (time that the machine is asleep included) or
  // `descriptor` is readable (-1: none). False when it is time to end.
  [[nodiscard]] bool sleep(std::optional<Seconds> delay, int descriptor);

 private:
  bool sawChange();

  const std::string requests_;
  Descriptor signals_, changes_, timer_, clock_;
  int folderWatch_ = -1;
  int zoneWatch_ = -1;
};

}  // namespace brevant
