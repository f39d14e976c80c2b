// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/date.h"
#include "store/widget_activity.h"
#include "store/widget_type.h"

namespace brevant {

class WidgetManager;

// An activity that runs or is paused, with what its category says about it.
struct StatusItem {
  bool isRunning = false;
  bool hasCategory = false;
  std::optional<std::string> guid;
  std::optional<std::string> categoryGuid;
  std::optional<std::string> name;
  std::optional<std::uint64_t> color;
  std::optional<Date> start;
  std::uint64_t elapsed = 0;  // whole seconds of the running stretch
  std::uint64_t total = 0;    // with the closed intervals
};

struct Status {
  std::vector<StatusItem> running;
  std::vector<StatusItem> paused;
};

// `type` is the activity's category; null when it is not known.
StatusItem statusItem(const WidgetActivity& activity, const WidgetType* type, Date now);

Status readStatus(WidgetManager& manager, const Clock& clock);

}  // namespace brevant
