// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace brevant {

// Unstructured tasks that nobody waits for. Tasks may run on any thread, at the same time and in
// any order; one that was started always runs, and the process that owns the queue waits for all of
// them before it exits. Nothing in the system may rely on their order.
class TaskQueue {
 public:
  virtual ~TaskQueue() = default;

  virtual void start(std::function<void()> task) = 0;

  // Returns once every task started so far, and those that they started, have finished.
  virtual void waitUntilIdle() = 0;
};

}  // namespace brevant
