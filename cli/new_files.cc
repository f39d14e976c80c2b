// SPDX-License-Identifier: MIT
#include "cli/new_files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "cli/words.h"
#include "platform/linux/durable_file.h"

namespace brevant {

namespace fs = std::filesystem;

NewFiles::~NewFiles() {
  std::error_code ignored;
  if (!workshop_.empty()) fs::remove_all(workshop_, ignored);
  // A folder that somebody put something into meanwhile stays.
  for (auto path = made_.rbegin(); path != made_.rend(); ++path) fs::remove(*path, ignored);
}

std::string NewFiles::makeFolder(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return "";
  if (path.has_parent_path() && path.parent_path() != path) {
    if (std::string trouble = makeFolder(path.parent_path()); !trouble.empty()) return trouble;
  }
  if (fs::create_directory(path, error)) made_.push_back(path);
  return error ? path.string() + ": " + error.message() : "";
}

void NewFiles::keepFolders() {
  std::erase_if(made_, [](const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
  });
}

NewFiles::Workshop NewFiles::makeWorkshop(const fs::path& parent) {
  std::string name = parent / ".new-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) return {{}, name + ": " + std::strerror(errno)};
  workshop_ = name;
  return {workshop_, ""};
}

std::string NewFiles::moveIn(const fs::path& from, const fs::path& to) {
  const std::error_code error = moveWithoutReplacing(from, to);
  if (error == std::errc::file_exists) return tr("%1 is there already", to.string());
  if (error) return to.string() + ": " + error.message();
  made_.push_back(to);
  return "";
}

}  // namespace brevant
