// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace brevant {

// A file URL as text, percent-escaped as RFC 3986 has it for paths: everything but unreserved
// characters, sub-delimiters, ":", "@" and "/" is spelled %XX (upper-case hexadecimal, per byte).
class FileUrl {
 public:
  // `path` is absolute and unescaped; a directory's URL ends in a slash.
  static FileUrl directory(std::string_view path);

  FileUrl appendingPathComponent(std::string_view component) const;

  // Scheme and three slashes first: file:///srv/data/
  const std::string& absoluteString() const { return text_; }

  // The unescaped path.
  std::string path() const;

 private:
  explicit FileUrl(std::string text) : text_(std::move(text)) {}

  std::string text_;
};

}  // namespace brevant
