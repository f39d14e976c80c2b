// SPDX-License-Identifier: MIT
#include "store/activity_order.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace brevant {
namespace {

// A number that puts later dates first, whatever the database holds.
double latestFirst(const std::optional<Date>& date) {
  constexpr double kLast = std::numeric_limits<double>::infinity();
  if (!date || std::isnan(secondsSince1970(*date))) return kLast;
  return -secondsSince1970(*date);
}

// What an activity is sorted by, taken once: its group, then its place within.
std::tuple<int, double> displayKey(const WidgetActivity& activity) {
  if (activity.state == kStateRunning) return {0, latestFirst(activity.start)};
  if (!activity.intervals || activity.intervals->empty()) return {1, 0};
  double latest = std::numeric_limits<double>::infinity();
  for (const auto& interval : *activity.intervals) {
    latest = std::min(latest, latestFirst(interval->to));
  }
  return {2, latest};
}

}  // namespace

void sortForDisplay(ActivityList& activities) {
  std::vector<std::pair<std::tuple<int, double>, ActivityRef>> keyed;
  keyed.reserve(activities.size());
  for (ActivityRef& each : activities) keyed.emplace_back(displayKey(*each), std::move(each));
  std::ranges::stable_sort(keyed, {}, [](const auto& entry) { return entry.first; });
  std::ranges::transform(keyed, activities.begin(),
                         [](auto& entry) { return std::move(entry.second); });
}

}  // namespace brevant
