// SPDX-License-Identifier: MIT
#include "platform/url.h"

#include <charconv>

namespace brevant {
namespace {

constexpr std::string_view kScheme = "file://";

bool standsAsItIs(char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return true;
  return std::string_view("-._~!$&'()*+,;=:@/").find(c) != std::string_view::npos;
}

std::string escaped(std::string_view path) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string result;
  for (const char c : path) {
    if (standsAsItIs(c)) {
      result += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    result += {'%', kHex[byte >> 4U], kHex[byte & 15U]};
  }
  return result;
}

}  // namespace

FileUrl FileUrl::directory(std::string_view path) {
  std::string text = std::string(kScheme) + escaped(path);
  if (!text.ends_with('/')) text += '/';
  return FileUrl(std::move(text));
}

FileUrl FileUrl::appendingPathComponent(std::string_view component) const {
  std::string text = text_;
  if (!text.ends_with('/')) text += '/';
  return FileUrl(text + escaped(component));
}

std::string FileUrl::path() const {
  const std::string_view escapedPath = std::string_view(text_).substr(kScheme.size());
  std::string result;
  for (std::size_t i = 0; i < escapedPath.size(); ++i) {
    unsigned byte = 0;
    const char* digits = escapedPath.data() + i + 1;
    if (escapedPath[i] == '%' && i + 2 < escapedPath.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      result += static_cast<char>(byte);
      i += 2;
    } else {
      result += escapedPath[i];
    }
  }
  return result;
}

}  // namespace brevant
