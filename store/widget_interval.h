#pragma once

#include <cstdint>
#include <optional>

#include "platform/date.h"
#include "store/widget_model.h"

namespace brevant {

class FMResultSet;
class SharedSettings;

// One closed stretch of time of an activity.
struct WidgetInterval : WidgetModel {
  std::optional<Date> from;
  std::optional<Date> to;

  // From the cursor's current row. The setting "dateTimePrecision" is read for every row: 1 takes
  // the minute columns, anything else the exact ones.
  static WidgetInterval intervalFromResultSet(FMResultSet& row, const SharedSettings& settings);

  // Whole seconds, never negative; an absent date counts as 1970.
  [[nodiscard]] std::uint64_t duration() const;

  // Identity, or equal and present guid, from and to.
  [[nodiscard]] bool isEqual(const WidgetInterval& other) const;
};

}  // namespace brevant
