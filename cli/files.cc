// SPDX-License-Identifier: MIT
#include "cli/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "cli/words.h"

namespace brevant {

std::variant<std::string, Unreadable> readInput() {
  constexpr std::size_t kMostInput = std::size_t{1} << 20U;
  std::string input;
  std::array<char, 4096> block{};
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), stdin)) {
    input.append(block.data(), count);
    if (input.size() > kMostInput) return Unreadable{tr("the input is larger than 1 MiB")};
  }
  if (std::ferror(stdin) != 0) {
    return Unreadable{tr("the input could not be read: %1", std::strerror(errno))};
  }
  return input;
}

std::string writeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return path + ": " + std::strerror(errno);
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const int error = errno;
  if (std::fclose(file) != 0) return path + ": " + std::strerror(errno);
  return written ? "" : path + ": " + std::strerror(error);
}

}  // namespace brevant
