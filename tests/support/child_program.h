// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brevant::test {

// A program that runs beside the test, found on the PATH, and is ended with the object.
class ChildProgram {
 public:
  explicit ChildProgram(const std::vector<std::string>& command);
  ~ChildProgram() { end(); }
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  // The next line of its output, without the line break; empty at the end.
  std::string readLine() { return readUntil('\n'); }

  // Everything that is left of its output; waits for its end.
  std::string readAll() { return readUntil(std::nullopt); }

  void end();

 private:
  std::string readUntil(std::optional<char> end);

  pid_t process_ = -1;
  int output_ = -1;
};

}  // namespace brevant::test
