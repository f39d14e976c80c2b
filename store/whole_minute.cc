// SPDX-License-Identifier: MIT
#include "store/whole_minute.h"

#include <cmath>
#include <utility>

namespace brevant {

Date wholeMinute(Date date, const Calendar& calendar) {
  DateComponents components = calendar.components(date);
  const int second = std::exchange(components.second, 0);
  const Date named = calendar.date(components);
  // The components may name two instants, of which the calendar takes the first.
  const Date nearest = dateFromSeconds(std::floor(secondsSince1970(date)) - second);
  return calendar.components(nearest) == components ? nearest : named;
}

}  // namespace brevant
