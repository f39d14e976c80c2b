// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "platform/date.h"
#include "store/fm_result_set.h"
#include "store/widget_model.h"

namespace brevant {

class SharedSettings;

// One closed stretch of time of an activity.
struct WidgetInterval : WidgetModel {
  std::optional<Date> from;
  std::optional<Date> to;

  // From the cursor's current row. The setting "dateTimePrecision" is read for every row: 1 takes
  // the minute columns, anything else the exact ones.
  static WidgetInterval intervalFromResultSet(FMResultSet& row, const SharedSettings& settings);

  // The same for many rows of one cursor, which it borrows.
  class Reader {
   public:
    Reader(FMResultSet& row, const SharedSettings& settings) : row_(row), settings_(settings) {}
    void read(WidgetInterval& interval);

   private:
    FMResultSet& row_;
    const SharedSettings& settings_;
    FMResultSet::Column guid_{"guid"};
    FMResultSet::Column start_{"start"}, finish_{"finish"};
    FMResultSet::Column startMinute_{"start_m"}, finishMinute_{"finish_m"};
  };

  // Whole seconds, never negative; an absent date counts as 1970.
  [[nodiscard]] std::uint64_t duration() const;

  // Identity, or equal and present guid, from and to.
  [[nodiscard]] bool isEqual(const WidgetInterval& other) const;
};

}  // namespace brevant
