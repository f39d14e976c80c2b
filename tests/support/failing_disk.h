// SPDX-License-Identifier: MIT

// System calls that fail on demand, in the test's own process.
#pragma once

namespace brevant::test {

// While it lives, no folder can be flushed to the disk: what was renamed may be forgotten.
struct FoldersCannotBeFlushed {
  FoldersCannotBeFlushed();
  ~FoldersCannotBeFlushed();
  FoldersCannotBeFlushed(const FoldersCannotBeFlushed&) = delete;
  FoldersCannotBeFlushed& operator=(const FoldersCannotBeFlushed&) = delete;
};

}  // namespace brevant::test
