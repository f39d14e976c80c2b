// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brevant::test {

// A file of tests/platform/data.
inline std::string testData(const std::string& name) {
  std::ifstream file(std::filesystem::path(BREVANT_TEST_DATA) / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace brevant::test
