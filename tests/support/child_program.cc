// SPDX-License-Identifier: MIT
#include "tests/support/child_program.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

extern char** environ;

namespace brevant::test {

ChildProgram::ChildProgram(const std::vector<std::string>& command) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::vector<char*> arguments;
  for (const std::string& each : command) arguments.push_back(const_cast<char*>(each.c_str()));
  arguments.push_back(nullptr);
  if (posix_spawnp(&process_, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
    process_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  output_ = ends[0];
}

std::string ChildProgram::readUntil(std::optional<char> end) {
  std::string text;
  for (char c = 0; read(output_, &c, 1) == 1 && c != end;) text += c;
  return text;
}

void ChildProgram::end() {
  if (const pid_t process = std::exchange(process_, -1); process > 0) {
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
  }
  if (const int output = std::exchange(output_, -1); output >= 0) close(output);
}

}  // namespace brevant::test
