// SPDX-License-Identifier: MIT
#include "tests/support/terminal.h"

#include <array>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brevant::test {

Terminal::Terminal(const std::vector<std::string>& words, const Process::Environment& environment,
                   unsigned short columns) {
  winsize size{24, columns, 0, 0};
  pid_ = forkpty(&keys_, nullptr, nullptr, &size);
  if (pid_ != 0) return;
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const std::string path = std::getenv("PATH");
  clearenv();
  setenv("PATH", path.c_str(), 1);
  for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

Terminal::~Terminal() {
  close(keys_);
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
}

void Terminal::type(const std::string& keys) const {
  static_cast<void>(!write(keys_, keys.data(), keys.size()));
}

std::string Terminal::readUntil(const std::string& text) const {
  constexpr int kSilence = 20'000;  // milliseconds
  std::string shown;
  std::array<char, 4096> block{};
  pollfd end{keys_, POLLIN, 0};
  while (shown.find(text) == std::string::npos && poll(&end, 1, kSilence) > 0) {
    const ssize_t count = read(keys_, block.data(), block.size());
    if (count <= 0) break;
    shown.append(block.data(), static_cast<std::size_t>(count));
  }
  return shown;
}

}  // namespace brevant::test
