// How soon the host has drawn its first picture and what memory that takes, beside a program that
// draws one label with the same toolkit; and how long drawing anew takes when it runs.
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "bench/ratio_report.h"

namespace {

namespace fs = std::filesystem;

struct Life {
  double seconds = 0, peakMegabytes = 0;
  bool succeeded = false;
};

Life run(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
    return {};
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> lived = std::chrono::steady_clock::now() - start;
  return {lived.count(), static_cast<double>(usage.ru_maxrss) / 1024, status == 0};
}

std::string shell(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 256> part{};
  while (pipe && std::fgets(part.data(), part.size(), pipe)) output += part.data();
  if (pipe) pclose(pipe);
  return output;
}

// A sample log, and two timelines of it: one activity runs, then another.
class Sample {
 public:
  Sample() {
    std::string name = (fs::temp_directory_path() / "brevant-bench-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);  // not everything that runs this has a session
    setenv("BREVANT", BREVANT, 1);
    setenv("BREVANT_CONTAINER", file("log").c_str(), 1);
    shell(BREVANT " sample " + file("log"));
    shell(BREVANT " timeline --json > " + file("one.json"));
    shell(BREVANT " stop > /dev/null; " BREVANT " start Jogging > /dev/null; " BREVANT
                  " timeline --json > " +
          file("other.json"));
  }
  Sample(const Sample&) = delete;
  ~Sample() { fs::remove_all(folder_); }

  [[nodiscard]] std::string file(const char* name) const { return folder_ / name; }

 private:
  fs::path folder_;
};

const Sample& sample() {
  static const Sample made;
  return made;
}

void coldStart(benchmark::State& state, std::vector<std::string> words) {
  words.push_back(sample().file("picture.png"));
  double least = 1e9;
  for (auto _ : state) {
    const Life life = run(words);
    if (!life.succeeded) state.SkipWithError("it failed");
    state.SetIterationTime(life.seconds);
    least = std::min(least, life.peakMegabytes);
  }
  state.counters["peakMB"] = least;
}

void warmRedraw(benchmark::State& state) {
  const std::string command =
      REDRAW " " + sample().file("one.json") + " " + sample().file("other.json");
  for (auto _ : state) {
    const double seconds = std::atof(shell(command).c_str());
    if (seconds <= 0) state.SkipWithError("it failed");
    state.SetIterationTime(seconds);
  }
}

double least(const std::vector<double>& times) {
  return *std::min_element(times.begin(), times.end());
}

using Words = std::vector<std::string>;

BENCHMARK_CAPTURE(coldStart, host, Words{BREVANT_DESKTOP, "--picture", "medium", "-o"})
    ->Name("firstPicture")
    ->UseManualTime()
    ->ComputeStatistics("min", least)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(coldStart, bare, Words{BARE_LABEL})
    ->Name("bareLabel")
    ->UseManualTime()
    ->ComputeStatistics("min", least)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(warmRedraw)
    ->UseManualTime()
    ->Iterations(3)
    ->ComputeStatistics("min", least)
    ->Unit(benchmark::kMillisecond);

// With another program's answer, and the typefaces; and a redraw is nothing beside a start.
const brevant::bench::Ratio kStart("firstPicture", "bareLabel", 2);
const brevant::bench::Ratio kRedraw("warmRedraw", "bareLabel", 0.1);

}  // namespace
