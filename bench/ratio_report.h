// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace brevant::bench {

// Two benchmarks of this program are compared: `measured` may take at most `limit` times as long as
// `against`. Declared as a constant beside the benchmarks; printed after all of them have run. CPU
// time is compared, or real time where the benchmarks' names say so.
class Ratio {
 public:
  Ratio(std::string measured, std::string against, double limit);
};

}  // namespace brevant::bench
