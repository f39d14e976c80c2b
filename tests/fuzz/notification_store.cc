// SPDX-License-Identifier: MIT

// Whatever the file of pending requests holds: reading it never fails, and adding a request keeps
// those that could be read.
#include "platform/linux/notification_store.h"

#include <cstdlib>

#include "tests/fuzz/container.h"

namespace {

std::size_t pendingCount(brevant::UserNotificationCenter& center) {
  std::size_t count = 0;
  center.pendingRequests([&](const auto& requests) { count = requests.size(); },
                         [](const auto&) {});
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const brevant::fuzz::Container container;
  static const brevant::fuzz::StandingClock clock;
  container.write("Notifications/requests.json", data, size);

  const auto center = brevant::makeNotificationStore(container.path(), clock);
  const std::size_t before = pendingCount(*center);
  std::string error;
  center->add({"remind-fuzz", {}, {}},
              [&](const brevant::SaveOutcome& outcome) { error = outcome.why; });
  if (error.empty() && pendingCount(*center) < before) std::abort();
  return 0;
}
