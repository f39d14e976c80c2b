// SPDX-License-Identifier: MIT
#include "tests/support/process.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brevant::test {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

std::vector<std::string> assignments(Process::Environment environment) {
  if (const char* path = std::getenv("PATH")) environment.try_emplace("PATH", path);
  std::vector<std::string> result;
  for (const auto& [name, value] : environment) result.push_back(name + '=' + value);
  return result;
}

bool readMore(int descriptor, std::string& text) {
  std::array<char, 4096> block{};
  const ssize_t count = read(descriptor, block.data(), block.size());
  if (count > 0) text.append(block.data(), static_cast<std::size_t>(count));
  return count > 0;
}

}  // namespace

Process::Process(const std::vector<std::string>& words, const Environment& environment,
                 const std::string& input) {
  std::array<int, 2> out{};
  std::array<int, 2> err{};
  if (pipe(out.data()) != 0 || pipe(err.data()) != 0) std::abort();
  std::FILE* const in = std::tmpfile();  // no pipe that could fill up
  std::fwrite(input.data(), 1, input.size(), in);
  std::rewind(in);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
  for (const int descriptor : {fileno(in), out[0], out[1], err[0], err[1]}) {
    posix_spawn_file_actions_addclose(&actions, descriptor);
  }
  std::vector<std::string> arguments = words;
  std::vector<std::string> variables = assignments(environment);
  if (posix_spawn(&pid_, words.front().c_str(), &actions, nullptr, pointers(arguments).data(),
                  pointers(variables).data()) != 0) {
    ADD_FAILURE() << "cannot run " << words.front();
  }
  posix_spawn_file_actions_destroy(&actions);
  std::fclose(in);
  for (const int descriptor : {out[1], err[1]}) close(descriptor);
  out_ = out[0];
  err_ = err[0];
}

Process::~Process() {
  if (pid_ < 0) return;
  send(SIGKILL);
  wait();
}

Outcome Process::wait() {
  Outcome outcome;
  std::array<pollfd, 2> ends{{{out_, POLLIN, 0}, {err_, POLLIN, 0}}};
  while (ends[0].fd >= 0 || ends[1].fd >= 0) {
    poll(ends.data(), ends.size(), -1);
    if (ends[0].revents != 0 && !readMore(out_, outcome.out)) ends[0].fd = -1;
    if (ends[1].revents != 0 && !readMore(err_, outcome.err)) ends[1].fd = -1;
    for (pollfd& end : ends) end.revents = 0;
  }
  close(out_);
  close(err_);
  int status = 0;
  rusage used{};
  wait4(pid_, &status, 0, &used);
  outcome.peakKilobytes = used.ru_maxrss;
  pid_ = -1;
  if (WIFEXITED(status)) outcome.exitCode = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) outcome.signal = WTERMSIG(status);
  return outcome;
}

void Process::send(int signal) const {
  kill(pid_, signal);
}

}  // namespace brevant::test
