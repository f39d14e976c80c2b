#pragma once

#include <memory>
#include <string>

#include "platform/log.h"
#include "platform/notifications.h"

namespace brevant {

// The pending requests in the container: docs/notifications.md. Handlers and completions run on the
// caller's thread. A broken file reads as empty, with a log line that names it, and is never
// overwritten.
std::unique_ptr<UserNotificationCenter> makeNotificationStore(const std::string& container,
                                                              Log& log);

}  // namespace brevant
