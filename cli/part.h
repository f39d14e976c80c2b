// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace brevant {

// What came of a command line that ran in a process of its own.
struct PartAnswer {
  std::string answer;  // without its line end; empty when it was not done
  std::string error;   // why; empty when it was
  std::string said;    // all that it wrote on stderr
};

// Runs the program with these words in a copy of this process, so that a fatal error ends only the
// copy. To be called while there is no other thread.
PartAnswer answerApart(const std::vector<std::string>& words);

}  // namespace brevant
