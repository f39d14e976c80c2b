// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace brevant {

// The system log. One call is one line; lines of several threads never mix.
class Log {
 public:
  virtual ~Log() = default;

  virtual void write(std::string_view line) = 0;
};

}  // namespace brevant
