// SPDX-License-Identifier: MIT
#include "platform/linux/random_source.h"

#include <cerrno>
#include <sys/random.h>

#include "platform/fatal_error.h"

namespace brevant {
namespace {

class LinuxRandomSource : public RandomSource {
 public:
  void fill(std::span<std::uint8_t> bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = getrandom(bytes.data(), bytes.size(), 0);
      if (count < 0 && errno != EINTR) fatalError("The system gives no random bytes");
      if (count > 0) bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
  }
};

}  // namespace

std::unique_ptr<RandomSource> makeRandomSource() {
  return std::make_unique<LinuxRandomSource>();
}

}  // namespace brevant
