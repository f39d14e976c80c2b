// SPDX-License-Identifier: MIT

// System calls that fail on demand, in the test's own process.
#pragma once

#include <functional>

namespace brevant::test {

// While it lives, `hook` runs before each exchange of two files, which it counts from 1. It answers
// the error that the exchange fails with, or 0.
struct AtExchange {
  explicit AtExchange(std::function<int(int call)> hook);
  ~AtExchange();
  AtExchange(const AtExchange&) = delete;
  AtExchange& operator=(const AtExchange&) = delete;
};

// While it lives, no folder can be flushed to the disk: what was renamed may be forgotten.
struct FoldersCannotBeFlushed {
  FoldersCannotBeFlushed();
  ~FoldersCannotBeFlushed();
  FoldersCannotBeFlushed(const FoldersCannotBeFlushed&) = delete;
  FoldersCannotBeFlushed& operator=(const FoldersCannotBeFlushed&) = delete;
};

}  // namespace brevant::test
