// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace brevant::test {

// A folder of its own that goes with the object. In memory where the system has such a place: some
// tests make thousands of files durable.
class TemporaryFolder {
 public:
  TemporaryFolder() = default;
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Makes the folders above the file as well.
  std::string write(const std::string& name, const std::string& contents) const {
    const std::filesystem::path file = path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << contents;
    return file;
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::filesystem::path path = make();

 private:
  static std::filesystem::path make() {
    const std::filesystem::path memory = "/dev/shm";
    const bool hasMemory = access(memory.c_str(), W_OK) == 0;
    std::string name =
        (hasMemory ? memory : std::filesystem::temp_directory_path()) / "brevant-test-XXXXXX";
    return mkdtemp(name.data());
  }
};

}  // namespace brevant::test
