// SPDX-License-Identifier: MIT
#include "platform/linux/file_bytes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brevant {

FileBytes::FileBytes(const std::string& path, std::size_t limit)
    : file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
  struct stat status {};
  const bool isAcceptable = file_ && fstat(file_.number(), &status) == 0 &&
                            S_ISREG(status.st_mode) &&
                            static_cast<std::size_t>(status.st_size) <= limit;
  if (!isAcceptable) file_.close();
}

bool FileBytes::read(std::uint8_t* to, std::size_t size) {
  while (size > 0) {
    if (at_ == end_ && !refill()) return false;
    const std::size_t part = std::min(size, end_ - at_);
    std::memcpy(to, block_.data() + at_, part);
    at_ += part;
    to += part;
    size -= part;
  }
  return true;
}

bool FileBytes::refill() {
  ssize_t count = -1;
  do {
    count = file_ ? ::read(file_.number(), block_.data(), block_.size()) : -1;
  } while (file_ && count < 0 && errno == EINTR);
  at_ = 0;
  end_ = count > 0 ? static_cast<std::size_t>(count) : 0;
  return end_ > 0;
}

}  // namespace brevant
