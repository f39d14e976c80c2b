// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/date.h"
#include "store/widget_interval.h"
#include "store/widget_model.h"

namespace brevant {

inline constexpr std::int32_t kStateStopped = 0;
inline constexpr std::int32_t kStateRunning = 1;
inline constexpr std::int32_t kStatePaused = 2;

using IntervalList = std::vector<std::shared_ptr<WidgetInterval>>;

// An entry of the time log.
struct WidgetActivity : WidgetModel {
  std::optional<std::string> categoryGuid;
  std::optional<std::string> comment;
  std::optional<IntervalList> intervals;  // the closed stretches, oldest first
  std::optional<Date> start;              // of the running stretch; absent when not running
  std::int32_t state = kStateStopped;     // one of the codes above, or as the database has it

  static std::shared_ptr<WidgetActivity> activityFromResultSet(FMResultSet& row);

  // A new activity with a list of its own whose intervals are shared; revision and updatedOn start
  // at 0.
  [[nodiscard]] std::shared_ptr<WidgetActivity> copy() const;

  // For diagnostics.
  [[nodiscard]] std::string description() const;

  // Identity, or equal guid, category, state, intervals and, while running, start.
  [[nodiscard]] bool isEqual(const WidgetActivity& other) const;
};

using ActivityRef = std::shared_ptr<WidgetActivity>;
using ActivityList = std::vector<ActivityRef>;

}  // namespace brevant
