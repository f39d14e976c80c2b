// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brevant {

using SharedBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

// What a command answers: text, and pictures that stand in it as base64. A picture of megabytes is
// held once, as its bytes, however often the answer has it; it becomes text while it is written.
class Answer {
 public:
  void add(std::string_view text);
  void add(Answer answer);
  void addBase64(SharedBytes bytes);
  void clear() { pieces_.clear(); }

  // Whether all of it reached stdout.
  bool write() const;

 private:
  std::vector<std::variant<std::string, SharedBytes>> pieces_;
};

}  // namespace brevant
