// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace brevant::bench {

// Each iteration is the life of a process, from its start to its end, with nothing on its standard
// output; the first word is found on the PATH. Counts the least of its peaks of memory as "peakMB".
void measureLives(benchmark::State& state, const std::vector<std::string>& words);

// What a command prints.
std::string shell(const std::string& command);

}  // namespace brevant::bench
