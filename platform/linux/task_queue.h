#pragma once

#include <memory>

#include "platform/task_queue.h"

namespace brevant {

// A thread for each task. Destruction waits until all are done.
std::unique_ptr<TaskQueue> makeTaskQueue();

}  // namespace brevant
