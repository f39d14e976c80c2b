// SPDX-License-Identifier: MIT
#include "store/widget_interval.h"

#include "platform/shared_settings.h"
#include "store/equality.h"
#include "store/fm_result_set.h"

namespace brevant {
namespace {

double secondsOrZero(const std::optional<Date>& date) {
  return date ? secondsSince1970(*date) : 0;
}

}  // namespace

WidgetInterval WidgetInterval::intervalFromResultSet(FMResultSet& row,
                                                     const SharedSettings& settings) {
  WidgetInterval interval;
  Reader(row, settings).read(interval);
  return interval;
}

void WidgetInterval::Reader::read(WidgetInterval& interval) {
  static const std::string kPrecision = "dateTimePrecision";
  constexpr std::int64_t kMinutePrecision = 1;

  interval.guid = row_.stringForColumn(guid_);
  const bool inMinutes = settings_.integer(kPrecision) == kMinutePrecision;
  interval.from = row_.dateForColumn(inMinutes ? startMinute_ : start_);
  interval.to = row_.dateForColumn(inMinutes ? finishMinute_ : finish_);
}

std::uint64_t WidgetInterval::duration() const {
  return wholeSeconds(secondsOrZero(to) - secondsOrZero(from));
}

bool WidgetInterval::isEqual(const WidgetInterval& other) const {
  if (this == &other) return true;
  return arePresentAndEqual(guid, other.guid) && arePresentAndEqual(from, other.from) &&
         arePresentAndEqual(to, other.to);
}

}  // namespace brevant
