// SPDX-License-Identifier: MIT
#include "platform/linux/log.h"

#include <cerrno>
#include <string>
#include <unistd.h>

namespace brevant {
namespace {

std::string printable(std::string_view line) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text;
  text.reserve(line.size() + 1);
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      text += "\\n";
    } else if ((byte < 0x20 && c != '\t') || byte == 0x7F) {
      text += {'\\', 'x', kHex[byte >> 4U], kHex[byte & 15U]};
    } else {
      text += c;
    }
  }
  return text;
}

class StderrLog : public Log {
 public:
  void write(std::string_view line) override {
    // One system call, so that lines of several threads and processes do not mix.
    const std::string text = printable(line) + '\n';
    while (::write(STDERR_FILENO, text.data(), text.size()) < 0 && errno == EINTR) {
    }
  }
};

}  // namespace

std::unique_ptr<Log> makeStderrLog() {
  return std::make_unique<StderrLog>();
}

}  // namespace brevant
