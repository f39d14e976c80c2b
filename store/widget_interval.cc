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
  static const std::string kPrecision = "dateTimePrecision";
  constexpr std::int64_t kMinutePrecision = 1;

  WidgetInterval interval;
  interval.guid = row.stringForColumn("guid");
  const bool inMinutes = settings.integer(kPrecision) == kMinutePrecision;
  interval.from = row.dateForColumn(inMinutes ? "start_m" : "start");
  interval.to = row.dateForColumn(inMinutes ? "finish_m" : "finish");
  return interval;
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
