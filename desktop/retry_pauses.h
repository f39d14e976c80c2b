// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace brevant {

// Pauses between attempts: they double from the first to the longest, and begin anew after a
// success.
class RetryPauses {
 public:
  using Milliseconds = std::chrono::milliseconds;

  RetryPauses(Milliseconds first, Milliseconds longest)
      : first_(first), longest_(longest), next_(first) {}

  Milliseconds next() {
    const Milliseconds pause = next_;
    next_ = std::min(next_ * 2, longest_);
    return pause;
  }
  void reset() { next_ = first_; }

 private:
  Milliseconds first_, longest_, next_;
};

}  // namespace brevant
