// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/task_queue.h"

namespace brevant {

// A thread for each task, the caller's own where the system gives no more. The elder tasks get a
// short head start. Destruction waits until all are done.
std::unique_ptr<TaskQueue> makeTaskQueue();

}  // namespace brevant
