// SPDX-License-Identifier: MIT
#include "cli/standard_streams.h"

#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include "cli/terminal_text.h"

namespace brevant {

void keepStandardPlaces() {
  for (const int place : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(place, F_GETFD) >= 0) continue;
    // The lowest free descriptor is this one; the way that nobody uses it fails like a closed one.
    static_cast<void>(open("/dev/null", place == STDIN_FILENO ? O_WRONLY : O_RDONLY));
  }
}

void writeMessage(std::string_view message) {
  const std::string line = "brevant: " + printable(message) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

bool writeAnswer(std::string_view answer) {
  const bool written = std::fwrite(answer.data(), 1, answer.size(), stdout) == answer.size();
  return std::fflush(stdout) == 0 && written;
}

}  // namespace brevant
