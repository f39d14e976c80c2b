// SPDX-License-Identifier: MIT

// Whatever the registry of Live Activities holds: reading it never fails, and starting one keeps
// those that could be read.
#include <algorithm>
#include <cstdlib>
#include <span>
#include <variant>
#include <vector>

#include "platform/linux/live_activity_registry.h"
#include "platform/random_source.h"
#include "tests/fuzz/container.h"

namespace {

struct NoRandom : brevant::RandomSource {
  void fill(std::span<std::uint8_t> bytes) override {
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brevant;
  static const fuzz::Container container;
  static const fuzz::StandingClock clock;
  static NoRandom random;
  container.write("LiveActivities/activities.json", data, size);

  const auto center = makeLiveActivityRegistry(container.path(), clock, random);
  const auto count = [&]() -> std::size_t {
    const LiveActivityList list = center->activities();
    const auto* const activities = std::get_if<std::vector<LiveActivity>>(&list);
    return activities != nullptr ? activities->size() : 0;
  };
  const std::size_t before = count();
  const auto started = center->start("{}");
  if (std::holds_alternative<StartedLiveActivity>(started) && count() != before + 1) std::abort();
  return 0;
}
