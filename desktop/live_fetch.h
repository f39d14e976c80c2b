// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/feed.h"

namespace brevant {

// A phone runs no more Live Activities of one application than this.
constexpr int kMostLiveActivities = 5;

// Asks which Live Activities run, and then how each is presented. The answer is the list of the
// presentations, in the order in which they were started; empty where the system version offers
// none. The client must outlive what is returned.
[[nodiscard]] Feed::Fetch liveActivitiesFetch(BrevantClient& client);

}  // namespace brevant
