// SPDX-License-Identifier: MIT
#include "platform/linux/descriptor.h"

#include <unistd.h>

namespace brevant {

bool Descriptor::close() {
  const int number = std::exchange(number_, -1);
  return number < 0 || ::close(number) == 0;
}

}  // namespace brevant
