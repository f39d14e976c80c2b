#include "platform/linux/task_queue.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>

#include "tests/support/fake_platform.h"

namespace brevant {
namespace {

class TaskQueueContract : public testing::TestWithParam<bool> {
 protected:
  std::unique_ptr<TaskQueue> tasks =
      GetParam() ? makeTaskQueue() : std::make_unique<test::FakeTasks>();
};

TEST_P(TaskQueueContract, WaitsForTheTasksThatTasksStart) {
  std::atomic<int> done = 0;
  const std::function<void(int)> startTasks = [&](int depth) {
    for (int i = 0; i < 3; ++i) {
      tasks->start([&, depth] {
        if (depth > 0) startTasks(depth - 1);
        ++done;
      });
    }
  };
  startTasks(2);
  tasks->waitUntilIdle();
  EXPECT_EQ(done, 3 + 9 + 27);
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, TaskQueueContract, testing::Bool());

TEST(ThreadTaskQueueTest, RunsTasksAtTheSameTimeAndWaitsAtItsEnd) {
  std::promise<void> first, second;
  std::atomic<int> done = 0;
  {
    const auto tasks = makeTaskQueue();
    tasks->start([&] {
      first.set_value();
      second.get_future().wait();
      ++done;
    });
    tasks->start([&] {
      first.get_future().wait();
      second.set_value();
      ++done;
    });
  }
  EXPECT_EQ(done, 2);
}

}  // namespace
}  // namespace brevant
