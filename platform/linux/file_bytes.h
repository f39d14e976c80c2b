// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/linux/descriptor.h"

namespace brevant {

// A file that is read from its beginning to its end, never the whole of it in memory. Empty when it
// is missing, unreadable, no regular file or above `limit` bytes; never waits for a pipe's other
// end.
class FileBytes {
 public:
  FileBytes(const std::string& path, std::size_t limit);

  // The next `size` bytes; false when there are not that many.
  bool read(std::uint8_t* to, std::size_t size);

 private:
  bool refill();

  Descriptor file_;
  std::array<std::uint8_t, 32'768> block_{};
  std::size_t at_ = 0, end_ = 0;  // what of the block is still to be read
};

}  // namespace brevant
