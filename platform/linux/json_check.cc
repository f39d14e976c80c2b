// SPDX-License-Identifier: MIT
#include "platform/linux/json_check.h"

#include <algorithm>

#include "platform/linux/file_limits.h"

namespace brevant {
namespace {

// How deep lists and objects nest, brackets in texts aside. No parser gets deeper into the text,
// wherever it gives up.
int depthOfJson(std::string_view text) {
  int depth = 0, deepest = 0;
  bool isInText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') isInText = !isInText;
    if (isInText) {
      if (c == '\\') ++i;
    } else if (c == '[' || c == '{') {
      deepest = std::max(deepest, ++depth);
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return deepest;
}

}  // namespace

std::string harmInJson(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) return "holds a NUL byte";
  if (depthOfJson(text) <= kMaxJsonDepth) return "";
  return "nests more than " + std::to_string(kMaxJsonDepth) + " levels deep";
}

}  // namespace brevant
