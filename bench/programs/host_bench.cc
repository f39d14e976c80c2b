// SPDX-License-Identifier: MIT

// How soon the host has drawn its first picture and what memory that takes, beside a program that
// draws one label with the same toolkit; and how long drawing anew takes when it runs.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/programs/process_life.h"
#include "bench/ratio_report.h"

namespace brevant::bench {
namespace {

namespace fs = std::filesystem;

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
  measureLives(state, words);
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
const Ratio kStart("firstPicture", "bareLabel", 2);
const Ratio kRedraw("warmRedraw", "bareLabel", 0.1);

}  // namespace
}  // namespace brevant::bench
