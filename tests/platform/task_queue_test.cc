// SPDX-License-Identifier: MIT
#include "platform/linux/task_queue.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

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

// So that an update of what another task ends is seen first, however busy the machine is.
TEST(ThreadTaskQueueTest, GivesTheElderAHeadStart) {
  for (int round = 0; round < 50; ++round) {
    std::atomic<char> last = 0;
    const auto tasks = makeTaskQueue();
    for (const char each : {'a', 'b', 'c'}) tasks->start([&last, each] { last = each; });
    tasks->waitUntilIdle();
    ASSERT_EQ(last, 'c') << round;
  }
}

TEST(ThreadTaskQueueTest, RunsTasksItselfWhereThereCanBeNoMoreThreads) {
  pthread_attr_t normal, huge;
  ASSERT_EQ(pthread_getattr_default_np(&normal), 0);
  pthread_attr_init(&huge);
  pthread_attr_setstacksize(&huge, std::size_t{1} << 50U);
  ASSERT_EQ(pthread_setattr_default_np(&huge), 0);
  std::thread::id ran;
  {
    const auto tasks = makeTaskQueue();
    tasks->start([&ran] { ran = std::this_thread::get_id(); });
  }
  EXPECT_EQ(pthread_setattr_default_np(&normal), 0);
  EXPECT_EQ(ran, std::this_thread::get_id());
}

}  // namespace
}  // namespace brevant
