// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/platform.h"
#include "store/store_events.h"

namespace brevant {

// Makes a new database as the main application would have it after some weeks of use: its whole
// schema, categories in groups, a log up to now in which one activity runs and one is paused. One
// category has `customIcon` (a guid) for its icon. False, with the reason told to the listener,
// when that fails; whatever was written remains.
[[nodiscard]] bool createSampleDatabase(const Platform& platform, const std::string& path,
                                        const std::string& customIcon, StoreListener listener = {});

}  // namespace brevant
