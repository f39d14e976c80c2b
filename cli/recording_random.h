#pragma once

#include <cstdint>
#include <mutex>
#include <span>
#include <string_view>
#include <vector>

#include "platform/random_source.h"

namespace brevant {

// Passes random bytes on and remembers which identities were made of them. Starting an activity
// answers nothing; this tells the activity that this process started from one that another process
// started at the same moment. Thread-safe.
class RecordingRandom : public RandomSource {
 public:
  explicit RecordingRandom(RandomSource& random) : random_(random) {}

  void fill(std::span<std::uint8_t> bytes) override;

  // An identity that was made of bytes drawn here.
  [[nodiscard]] bool made(std::string_view uuid) const;

 private:
  RandomSource& random_;
  mutable std::mutex mutex_;
  std::vector<std::vector<std::uint8_t>> drawn_;
};

}  // namespace brevant
