// SPDX-License-Identifier: MIT
#include "manager/pin_disk_cache.h"

#include <cstdint>
#include <span>

#include "platform/clock.h"
#include "platform/file_manager.h"
#include "platform/image_codec.h"
#include "platform/log.h"
#include "platform/picture_limits.h"
#include "platform/task_queue.h"

namespace brevant {
namespace {

constexpr std::string_view kFolder = "/org.brevant.PINDiskCache.PINDiskCacheShared/";

// A key is one file, whatever stands in it.
std::string fileName(std::string_view key) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string name;
  for (const char c : key) {
    if (c == '.' || c == ':' || c == '/' || c == '%') {
      const auto byte = static_cast<unsigned char>(c);
      name += {'%', kHex[byte >> 4U], kHex[byte & 15U]};
    } else {
      name += c;
    }
  }
  return name;
}

}  // namespace

PINDiskCache::PINDiskCache(const Platform& platform)
    : platform_(platform), folder_(platform.files.cachesDirectory()) {
  if (folder_) *folder_ += kFolder;
}

ImageRef PINDiskCache::objectForKey(std::string_view key) const {
  if (key.empty() || !folder_) return nullptr;
  const std::string path = *folder_ + fileName(key);
  const Date now = platform_.clock.now();
  const std::optional<std::string> archive = platform_.files.contents(path, kMaxArchiveSize);
  if (!archive) return nullptr;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(archive->data());
  const std::optional<ImageRef> image = platform_.images.unarchiveImage({bytes, archive->size()});
  if (!image) {
    discard(path);
    return nullptr;
  }
  platform_.tasks.start(
      [&files = platform_.files, path, now] { files.setModificationDate(path, now); });
  return *image;
}

void PINDiskCache::discard(const std::string& path) const {
  const std::string error = platform_.files.removeFile(path);
  if (error.empty()) return;
  platform_.log.write("pin_disk_cache.cc (" + std::to_string(__LINE__) + ") ERROR: " + error);
}

}  // namespace brevant
