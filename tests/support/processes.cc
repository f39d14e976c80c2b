// SPDX-License-Identifier: MIT
#include "tests/support/processes.h"

#include <csignal>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace brevant::test {

bool runTogether(int count, const std::function<void(int)>& work) {
  std::vector<pid_t> children;
  for (int i = 0; i < count; ++i) {
    const pid_t child = fork();
    if (child == 0) {
      work(i);
      _exit(0);
    }
    children.push_back(child);
  }
  bool allEnded = true;
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    allEnded = allEnded && status == 0;
  }
  return allEnded;
}

End runKilledAt(int call, const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(1);
    raise(SIGSTOP);
    work();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFEXITED(status)) return End::kUntraceable;
  const int stops = 2 * call - 1;  // one at each end of a call
  for (int i = 0; i < stops; ++i) {
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) return End::kFinished;
  }
  kill(child, SIGKILL);
  waitpid(child, &status, 0);
  return End::kKilled;
}

}  // namespace brevant::test
