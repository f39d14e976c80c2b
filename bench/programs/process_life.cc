// SPDX-License-Identifier: MIT
#include "bench/programs/process_life.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brevant::bench {
namespace {

struct Life {
  double seconds = 0, peakMegabytes = 0;
  bool succeeded = false;
};

Life live(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  const int error =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return {};
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> lived = std::chrono::steady_clock::now() - start;
  return {lived.count(), static_cast<double>(usage.ru_maxrss) / 1024, status == 0};
}

}  // namespace

void measureLives(benchmark::State& state, const std::vector<std::string>& words) {
  double least = std::numeric_limits<double>::infinity();
  for (auto _ : state) {
    const Life life = live(words);
    if (!life.succeeded) state.SkipWithError("it failed");
    state.SetIterationTime(life.seconds);
    least = std::min(least, life.peakMegabytes);
  }
  state.counters["peakMB"] = least;
}

std::string shell(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 256> part{};
  while (pipe && std::fgets(part.data(), part.size(), pipe)) output += part.data();
  if (pipe) pclose(pipe);
  return output;
}

}  // namespace brevant::bench
