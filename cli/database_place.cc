// SPDX-License-Identifier: MIT
#include "cli/database_place.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/words.h"
#include "platform/container_path.h"

namespace brevant {
namespace {

// The database's path begins with three slashes; people write one.
std::string withOneSlash(std::string path) {
  path.erase(0, std::min(path.find_first_not_of('/'), path.size()));
  return '/' + path;
}

}  // namespace

std::optional<std::string> containerDirectory(const FileManager& files) {
  const std::optional<FileUrl> url = files.containerUrl(kAppGroupIdentifier);
  if (!url) return std::nullopt;
  std::string path = url->path();
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

std::optional<std::string> missingContainer(const FileManager& files) {
  const std::optional<std::string> container = containerDirectory(files);
  if (!container) return tr("there is no container: name one with --container, as HOME is not set");
  struct stat status {};
  const bool isThere = stat(container->c_str(), &status) == 0;
  if (!isThere && errno != EACCES) {
    return tr("there is no container at %1 (brevant sample DIR makes one to try)", *container);
  }
  if (isThere && !S_ISDIR(status.st_mode)) {
    return tr("the container %1 is no directory", *container);
  }
  if (isThere && access(container->c_str(), X_OK) == 0) return std::nullopt;
  return tr("the container %1 cannot be entered: %2", *container, std::strerror(errno));
}

std::optional<std::string> missingDatabase(const FileManager& files) {
  const std::optional<std::string> path = containerPath(files, kDatabaseFile);
  const std::optional<FileUrl> url = files.containerUrl(kAppGroupIdentifier);
  if (!path || !url) return missingContainer(files);
  if (files.fileExists(*path)) return std::nullopt;

  if (auto trouble = missingContainer(files)) return trouble;
  const std::string looked = withOneSlash(*path);
  if (looked != url->appendingPathComponent(kDatabaseFile).path()) {
    return tr(
        "the path of the container needs percent escapes, so its database is looked for at %1: "
        "move the container to a path without spaces and other special characters",
        looked);
  }
  return tr("there is no database at %1", looked);
}

bool needsEscapes(const std::string& directory) {
  const std::string path = std::filesystem::absolute(directory).string();
  return FileUrl::directory(path).absoluteString().find('%') != std::string::npos;
}

}  // namespace brevant
