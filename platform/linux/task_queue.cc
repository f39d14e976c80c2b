#include "platform/linux/task_queue.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace brevant {
namespace {

class ThreadTaskQueue : public TaskQueue {
 public:
  ThreadTaskQueue() = default;
  ~ThreadTaskQueue() override { ThreadTaskQueue::waitUntilIdle(); }
  ThreadTaskQueue(const ThreadTaskQueue&) = delete;
  ThreadTaskQueue& operator=(const ThreadTaskQueue&) = delete;

  void start(std::function<void()> task) override {
    {
      const std::lock_guard lock(mutex_);
      ++unfinished_;
    }
    std::thread([this, task = std::move(task)]() mutable { run(std::move(task)); }).detach();
  }

  void waitUntilIdle() override {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return unfinished_ == 0; });
  }

 private:
  void run(std::function<void()> task) {
    task();
    task = nullptr;  // what it holds must be gone before anybody who waits goes on
    const std::lock_guard lock(mutex_);
    if (--unfinished_ == 0) idle_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable idle_;
  int unfinished_ = 0;
};

}  // namespace

std::unique_ptr<TaskQueue> makeTaskQueue() {
  return std::make_unique<ThreadTaskQueue>();
}

}  // namespace brevant
