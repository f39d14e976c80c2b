// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/linux/descriptor.h"

namespace brevant {

// A lock between processes and threads, held from construction to destruction. `path` is a file of
// its own beside what it guards, and stays: removing it would let two holders in. A process that
// dies lets go. Waits 2 seconds at most for another that holds it, so that one that hangs cannot
// hang everybody.
class FileLock {
 public:
  explicit FileLock(const std::string& path);

  bool held() const { return static_cast<bool>(file_); }

  // Somebody else has it; else what is wrong lies in the lock's file.
  bool isBusy() const { return busy_; }

  // Why it is not held, with the path; empty when it is.
  const std::string& problem() const { return problem_; }

 private:
  Descriptor file_;
  std::string problem_;
  bool busy_ = false;
};

}  // namespace brevant
