// SPDX-License-Identifier: MIT
#include "cli/terminal.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace brevant {
namespace {

std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

// The nearest of the 6 x 6 x 6 colours that every such terminal has.
unsigned cubeColor(unsigned red, unsigned green, unsigned blue) {
  const auto step = [](unsigned level) { return (level * 5 + 127) / 255; };
  return 16 + 36 * step(red) + 6 * step(green) + step(blue);
}

}  // namespace

Colors colorsOfStdout() {
  if (isatty(STDOUT_FILENO) == 0 || std::getenv("NO_COLOR") != nullptr) return Colors::kNone;
  if (environment("TERM") == "dumb") return Colors::kNone;
  const std::string_view depth = environment("COLORTERM");
  if (depth == "truecolor" || depth == "24bit") return Colors::kMillions;
  return environment("TERM").ends_with("256color") ? Colors::k256 : Colors::kNone;
}

std::string painted(const std::string& text, std::optional<std::uint64_t> color, Colors colors) {
  if (!color || colors == Colors::kNone) return text;
  const auto red = static_cast<unsigned>(*color >> 16U & 255U);
  const auto green = static_cast<unsigned>(*color >> 8U & 255U);
  const auto blue = static_cast<unsigned>(*color & 255U);
  const std::string code =
      colors == Colors::kMillions
          ? "2;" + std::to_string(red) + ';' + std::to_string(green) + ';' + std::to_string(blue)
          : "5;" + std::to_string(cubeColor(red, green, blue));
  return "\x1b[38;" + code + 'm' + text + "\x1b[0m";
}

std::size_t columnsOfStdout() {
  constexpr std::size_t kFewest = 20;
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return SIZE_MAX;
  return std::max<std::size_t>(size.ws_col, kFewest);
}

}  // namespace brevant
