// SPDX-License-Identifier: MIT
#include "platform/container_path.h"

namespace brevant {

std::optional<std::string> containerPath(const FileManager& files, std::string_view component) {
  const std::optional<FileUrl> container = files.containerUrl(kAppGroupIdentifier);
  if (!container) return std::nullopt;
  std::string path = container->appendingPathComponent(component).absoluteString();
  constexpr std::string_view kScheme = "file:";
  for (std::size_t at = 0; (at = path.find(kScheme, at)) != std::string::npos;) {
    path.erase(at, kScheme.size());
  }
  return path;
}

}  // namespace brevant
