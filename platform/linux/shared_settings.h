// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/log.h"
#include "platform/shared_settings.h"

namespace brevant {

// The settings file of the app group in its container: docs/settings.md.
std::string settingsPath(const std::string& container);

std::unique_ptr<SharedSettings> makeSharedSettings(const std::string& container, const Clock& clock,
                                                   Log& log);

}  // namespace brevant
