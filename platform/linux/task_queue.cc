// SPDX-License-Identifier: MIT
#include "platform/linux/task_queue.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>
#include <utility>

namespace brevant {
namespace {

// How long a task lets those that were started before it go first. Nothing may rely on it; it is
// what lets a value be seen before the task that takes it away. A task that waits for a younger one
// goes on after that time.
constexpr std::chrono::milliseconds kHeadStart(50);

class ThreadTaskQueue : public TaskQueue {
 public:
  ThreadTaskQueue() = default;
  ~ThreadTaskQueue() override { ThreadTaskQueue::waitUntilIdle(); }
  ThreadTaskQueue(const ThreadTaskQueue&) = delete;
  ThreadTaskQueue& operator=(const ThreadTaskQueue&) = delete;

  void start(std::function<void()> task) override {
    const auto shared = std::make_shared<std::function<void()>>(std::move(task));
    const std::uint64_t number = add();
    try {
      std::thread([this, shared, number] {
        letElderGoFirst(number);
        run(*shared, number);
      }).detach();
    } catch (const std::system_error&) {  // there can be no more threads
      run(*shared, number);
    }
  }

  void waitUntilIdle() override {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return unfinished_.empty(); });
  }

 private:
  std::uint64_t add() {
    const std::lock_guard lock(mutex_);
    unfinished_.insert(unfinished_.end(), ++started_);
    return started_;
  }

  void letElderGoFirst(std::uint64_t number) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, kHeadStart, [&] { return *unfinished_.begin() == number; });
  }

  void run(std::function<void()>& task, std::uint64_t number) {
    task();
    task = nullptr;  // what it holds must be gone before anybody who waits goes on
    const std::lock_guard lock(mutex_);
    unfinished_.erase(number);
    changed_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::uint64_t started_ = 0;
  std::set<std::uint64_t> unfinished_;  // in the order they were started
};

}  // namespace

std::unique_ptr<TaskQueue> makeTaskQueue() {
  return std::make_unique<ThreadTaskQueue>();
}

}  // namespace brevant
