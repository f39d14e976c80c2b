#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brevant::test {

// A file of tests/platform/data.
inline std::string testData(const std::string& name) {
  const auto tests = std::filesystem::path(__FILE__).parent_path().parent_path();
  std::ifstream file(tests / "platform" / "data" / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace brevant::test
