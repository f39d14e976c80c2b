// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/process.h"

namespace brevant::test {

// A program on a terminal of its own, for what differs there. It is hung up on with the object.
class Terminal {
 public:
  Terminal(const std::vector<std::string>& words, const Process::Environment& environment,
           unsigned short columns);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void type(const std::string& keys) const;

  // What it shows up to `text`; everything up to the end, or to a long silence, where that is not
  // among it.
  std::string readUntil(const std::string& text) const;
  [[nodiscard]] std::string readAll() const { return readUntil(std::string(1, '\0')); }

 private:
  pid_t pid_ = -1;
  int keys_ = -1;
};

}  // namespace brevant::test
