#include "cli/recording_random.h"

#include <algorithm>

#include "platform/uuid.h"

namespace brevant {
namespace {

struct Replay : RandomSource {
  explicit Replay(std::span<const std::uint8_t> bytes) : recorded(bytes) {}

  void fill(std::span<std::uint8_t> bytes) override {
    std::copy_n(recorded.begin(), std::min(recorded.size(), bytes.size()), bytes.begin());
  }

  std::span<const std::uint8_t> recorded;
};

}  // namespace

void RecordingRandom::fill(std::span<std::uint8_t> bytes) {
  random_.fill(bytes);
  const std::lock_guard lock(mutex_);
  drawn_.emplace_back(bytes.begin(), bytes.end());
}

bool RecordingRandom::made(std::string_view uuid) const {
  const std::lock_guard lock(mutex_);
  return std::any_of(drawn_.begin(), drawn_.end(), [uuid](const auto& bytes) {
    Replay replay(bytes);
    return newUuid(replay) == uuid;
  });
}

}  // namespace brevant
