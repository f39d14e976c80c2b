// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace brevant {

// Case mapping of texts. Thread-safe.
class CaseMapping {
 public:
  virtual ~CaseMapping() = default;

  // Full Unicode mapping, independent of the language. Bytes that are no UTF-8 become U+FFFD.
  virtual std::string lowercased(std::string_view utf8) const = 0;
};

}  // namespace brevant
