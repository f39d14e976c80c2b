// SPDX-License-Identifier: MIT

// Whatever database lies in the container: all queries end, so does one change of each kind, and
// without a commit that was told of, the file stays byte for byte as it was.
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>
#include <variant>

#include "manager/widget_manager.h"
#include "platform/linux/linux_platform.h"
#include "tests/fuzz/container.h"

namespace {

using namespace brevant;

// Ten seconds pass between two looks: work without end is over soon, and always at the same place.
struct HurriedClock : fuzz::StandingClock {
  Date now() const override { return dateFromSeconds(1.7e9); }
  double monotonicSeconds() const override { return seconds += 10; }
  mutable double seconds = 0;
};

Platform with(const Clock& clock, const Platform& rest) {
  return {clock,       rest.calendar,      rest.files,          rest.settings, rest.bundle,
          rest.images, rest.caseMapping,   rest.coder,          rest.process,  rest.random,
          rest.cloud,  rest.notifications, rest.liveActivities, rest.tasks,    rest.log};
}

void query(const WidgetManager& manager) {
  (void)manager.findActivities();
  (void)manager.findRunningActivities();
  (void)manager.findRoot();
  (void)manager.findCategoriesOnly();
  (void)manager.findByName("code");
  const TypeList types = manager.findAllTypes();
  if (!types.empty()) (void)manager.findById(types.back()->guid.value_or(""));
}

void changeFirst(WidgetManager& manager, void (*change)(WidgetManager&, WidgetActivity&)) {
  manager.inOneTransaction([&] {
    const auto activities = manager.dao->readActivities();
    if (activities && !activities->empty()) change(manager, *activities->front());
  });
}

void change(WidgetManager& manager) {
  changeFirst(manager, [](auto& to, auto& activity) { to.pauseActivity(activity); });
  changeFirst(manager, [](auto& to, auto& activity) { to.resumeActivity(activity); });
  changeFirst(manager, [](auto& to, auto& activity) { to.stopActivity(activity); });
  manager.inOneTransaction([&] { manager.startActivity("C"); });
}

bool holds(const std::string& path, const std::uint8_t* data, std::size_t size) {
  std::ifstream file(path, std::ios::binary);
  return std::equal(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>(), data,
                    data + size,
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::Container container;
  const std::string path = container.path() + "/database.sqlite";
  for (const char* const leftover : {"-journal", "-wal", "-shm"}) {
    std::filesystem::remove(path + leftover);
  }
  std::filesystem::remove_all(container.path() + "/Cloud");  // a record for each change
  container.write("database.sqlite", data, size);

  const HurriedClock clock;
  LinuxPlatform services({container.path(), {}, "17.0", false, ""});
  bool stored = false;
  {
    const auto manager =
        WidgetManager::open(with(clock, services.platform()), [&](const StoreEvent& event) {
          const auto* const end = std::get_if<TransactionEnd>(&event);
          stored = stored || (end && end->outcome != TransactionEnd::Outcome::kNotStored);
        });
    query(*manager);
    change(*manager);
    query(*manager);
  }
  if (!stored && !holds(path, data, size)) std::abort();
  return 0;
}
