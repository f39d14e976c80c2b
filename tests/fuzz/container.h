// SPDX-License-Identifier: MIT

// What the targets share that read a file of the container.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "platform/clock.h"

namespace brevant::fuzz {

struct StandingClock : Clock {
  Date now() const override { return {}; }
  double monotonicSeconds() const override { return 0; }
};

// The container of this process, in memory where there is room, and gone with it.
class Container {
 public:
  Container() { std::filesystem::create_directories(path_); }
  ~Container() { std::filesystem::remove_all(path_); }
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  std::string path() const { return path_; }

  void write(const char* name, const std::uint8_t* data, std::size_t size) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  }

 private:
  static std::filesystem::path folder() {
    const std::filesystem::path memory = "/dev/shm";
    return access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
  }

  const std::filesystem::path path_ = folder() / ("fuzz-" + std::to_string(getpid()));
};

}  // namespace brevant::fuzz
