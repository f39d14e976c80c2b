// SPDX-License-Identifier: MIT
#pragma once

#include "store/widget_activity.h"

namespace brevant {

// Puts the activities in the order in which they are shown: those that run, latest start first;
// then those without intervals; then the rest, latest end first. An absent date counts as the
// earliest of all. Equals keep their order.
void sortForDisplay(ActivityList& activities);

}  // namespace brevant
