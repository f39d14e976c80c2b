// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brevant::test {

// How a process ended and what it said.
struct Outcome {
  int exitCode = -1;  // -1 when a signal ended it
  int signal = 0;
  long peakKilobytes = 0;  // of its memory, or of this process when it was started
  std::string out;
  std::string err;
};

// A child process with an environment of its own: nothing is inherited but PATH. It is killed when
// the object goes before `wait`.
class Process {
 public:
  using Environment = std::map<std::string, std::string>;

  // The first word is the program's path.
  Process(const std::vector<std::string>& words, const Environment& environment,
          const std::string& input = {});
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // For its end; once.
  Outcome wait();

  void send(int signal) const;

 private:
  pid_t pid_ = -1;
  int out_ = -1;
  int err_ = -1;
};

}  // namespace brevant::test
