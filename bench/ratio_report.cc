// SPDX-License-Identifier: MIT
#include "bench/ratio_report.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <vector>

namespace brevant::bench {
namespace {

struct Comparison {
  std::string measured;
  std::string against;
  double limit;
};

std::vector<Comparison>& comparisons() {
  static std::vector<Comparison> declared;
  return declared;
}

// Prints each benchmark's summary as usual and keeps the single times.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> shown;
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        const bool isReal = !run.run_name.time_type.empty();
        times_[name].push_back((isReal ? run.real_accumulated_time : run.cpu_accumulated_time) /
                               static_cast<double>(run.iterations));
      }
      const bool isSpread = run.aggregate_name == "mean" || run.aggregate_name == "stddev";
      if (run.run_type == Run::RT_Aggregate && !isSpread) shown.push_back(run);
    }
    if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
  }

  // Fastest against fastest, as whatever else the machine does can only add to a time; false when
  // a limit is exceeded.
  bool printRatios() const {
    bool kept = true;
    std::printf("\n%-34s %-34s %7s %7s\n", "measured", "against", "ratio", "limit");
    for (const auto& [measured, against, limit] : comparisons()) {
      const auto one = times_.find(measured);
      const auto other = times_.find(against);
      if (one == times_.end() || other == times_.end()) continue;  // filtered out
      const double ratio = std::ranges::min(one->second) / std::ranges::min(other->second);
      kept = kept && ratio <= limit;
      std::printf("%-34s %-34s %7.2f %7.2f%s\n", measured.c_str(), against.c_str(), ratio, limit,
                  ratio <= limit ? "" : "  exceeded");
    }
    return kept;
  }

 private:
  std::map<std::string, std::vector<double>> times_;  // seconds, by benchmark
};

int run(int argc, char** argv) {
  // Repetitions in turn, so that a busy moment of the machine meets both sides of a comparison.
  std::string defaults[] = {"--benchmark_repetitions=15", "--benchmark_min_time=0.05",
                            "--benchmark_enable_random_interleaving=true"};
  std::vector<char*> arguments{argv[0]};
  for (std::string& each : defaults) arguments.push_back(each.data());
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.printRatios() ? 0 : 1;
}

}  // namespace

Ratio::Ratio(std::string measured, std::string against, double limit) {
  comparisons().push_back({std::move(measured), std::move(against), limit});
}

}  // namespace brevant::bench

int main(int argc, char** argv) {
  return brevant::bench::run(argc, argv);
}
