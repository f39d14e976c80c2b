// SPDX-License-Identifier: MIT
#include "platform/fatal_error.h"

#include <cstdio>
#include <cstdlib>

namespace brevant {

void fatalError(std::string_view message) {
  std::fflush(stdout);
  std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace brevant
