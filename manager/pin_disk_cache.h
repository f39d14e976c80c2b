// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/image.h"
#include "platform/platform.h"

namespace brevant {

// Finished images on disk, a keyed archive per key, in a folder of the user's caches directory.
// This side only reads: whoever fills the folder also trims it, by the modification dates that each
// entry read gets. It remembers nothing, so that a miss costs one attempt to open a file, and any
// thread may ask.
class PINDiskCache {
 public:
  explicit PINDiskCache(const Platform& platform);

  // Null for a key without an entry, or with one that is no image; one that is not even an archive
  // is deleted.
  [[nodiscard]] ImageRef objectForKey(std::string_view key) const;

 private:
  void discard(const std::string& path) const;

  Platform platform_;
  std::optional<std::string> folder_;
};

}  // namespace brevant
