// SPDX-License-Identifier: MIT

// How a category's icon is found and tinted.
#include <cstddef>

#include "manager/pin_disk_cache.h"
#include "manager/tint.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"
#include "platform/container_path.h"
#include "platform/file_manager.h"
#include "platform/image_codec.h"
#include "platform/log.h"

namespace brevant {
namespace {

constexpr const char* kDefaultIcon = "cat_1.png";

// Names below this length are of icons that ship with the extension ("cat_12.png"); the user's own
// are named by a guid.
constexpr std::size_t kCustomNameLength = 21;

std::string iconName(const std::optional<std::string>& guid) {
  if (!guid || guid->empty()) return kDefaultIcon;
  return guid->ends_with(".png") ? *guid : *guid + ".png";
}

// Counted as the main application does, in UTF-16 code units: one for every character that UTF-8
// begins, another for each that needs four bytes.
std::size_t lengthInUtf16(std::string_view utf8) {
  std::size_t length = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) ++length;
    if (byte >= 0xF0U) ++length;
  }
  return length;
}

std::string cacheKey(const std::string& name, std::uint64_t color) {
  return name + "-" + std::to_string(static_cast<std::int32_t>(color));
}

ImageRef shippedIcon(const Bundle& bundle, const std::string& name) {
  ImageRef image = bundle.imageNamed(name);
  return image ? image : bundle.imageNamed(kDefaultIcon);
}

}  // namespace

ImageRef WidgetManager::imageForType(const WidgetType& type) const {
  return imageForGuid(type.imageGuid, type.color);
}

ImageRef WidgetManager::imageForGuid(const std::optional<std::string>& guid,
                                     std::uint64_t color) const {
  const std::string name = iconName(guid);
  if (ImageRef cached = iconCache_.objectForKey(cacheKey(name, color))) return cached;
  const ImageRef icon = lengthInUtf16(name) < kCustomNameLength
                            ? shippedIcon(platform_.bundle, name)
                            : customIcon(name);
  return extensionImageWithIntColor(icon, color);
}

ImageRef WidgetManager::customIcon(const std::string& name) const {
  const std::optional<std::string> path = pathForCustomImageGuid(name);
  if (!path) return nullptr;
  // Where the user's own links lead is the user's choice; a name comes from the database.
  if (name.find_first_of(std::string_view("/\0", 2)) != std::string::npos) {
    platform_.log.write("The icon \"" + name + "\" is refused: it is no name of a file");
    return nullptr;
  }
  ImageRef image = platform_.images.silhouetteWithContentsOfFile(*path);
  if (!image || image->scale == 1) return image;
  auto atScaleOne = std::make_shared<Image>(*image);  // whatever its name would say
  atScaleOne->scale = 1;
  return atScaleOne;
}

std::optional<std::string> WidgetManager::pathForCustomImageGuid(std::string_view name) const {
  std::optional<std::string> path = customImagesPath();
  if (path) path->append("/").append(name);
  return path;
}

std::optional<std::string> WidgetManager::customImagesPath() const {
  return containerPath(platform_.files, "custom_images");
}

}  // namespace brevant
