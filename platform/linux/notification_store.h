// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/notifications.h"

namespace brevant {

// The pending requests in the container: docs/notifications.md. Handlers and completions run on the
// caller's thread. A file that is broken or cannot be read is never overwritten.
std::unique_ptr<UserNotificationCenter> makeNotificationStore(const std::string& container,
                                                              const Clock& clock);

}  // namespace brevant
