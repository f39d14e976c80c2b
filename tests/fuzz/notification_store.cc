// SPDX-License-Identifier: MIT

// Whatever the file of pending requests holds: reading it never fails, and adding a request keeps
// those that could be read.
#include "platform/linux/notification_store.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

struct StandingClock : brevant::Clock {
  brevant::Date now() const override { return {}; }
  double monotonicSeconds() const override { return 0; }
};

// The container of this run, gone with it.
struct Container {
  Container() { std::filesystem::create_directories(path / "Notifications"); }
  ~Container() { std::filesystem::remove_all(path); }

  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(getpid()));
};

std::size_t pendingCount(brevant::UserNotificationCenter& center) {
  std::size_t count = 0;
  center.pendingRequests([&](const auto& requests) { count = requests.size(); },
                         [](const auto&) {});
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Container container;
  static const StandingClock clock;
  std::ofstream(container.path / "Notifications/requests.json", std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

  const auto center = brevant::makeNotificationStore(container.path, clock);
  const std::size_t before = pendingCount(*center);
  std::string error;
  center->add({"remind-fuzz", {}, {}},
              [&](const brevant::SaveOutcome& outcome) { error = outcome.why; });
  if (error.empty() && pendingCount(*center) < before) std::abort();
  return 0;
}
