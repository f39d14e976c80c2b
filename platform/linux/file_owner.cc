// SPDX-License-Identifier: MIT
#include "platform/linux/file_owner.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace brevant {
namespace {

constexpr uid_t kSameUser = -1U;
constexpr gid_t kSameGroup = -1U;

}  // namespace

bool takeAfter(int file, const std::string& path) {
  struct stat old {};
  struct stat own {};
  if (stat(path.c_str(), &old) != 0 || fstat(file, &own) != 0) return false;
  mode_t mode = old.st_mode & 07777U;
  if (own.st_uid != old.st_uid && fchown(file, old.st_uid, kSameGroup) != 0) return false;
  if (own.st_gid != old.st_gid && fchown(file, kSameUser, old.st_gid) != 0) mode &= 07707U;
  return fchmod(file, mode) == 0;
}

void giveToOwnerOfFolder(int file, const std::string& path) {
  struct stat folder {};
  if (geteuid() != 0 || stat(folderOf(path).c_str(), &folder) != 0) return;
  // Where a file system knows no owners there is nobody to give it to.
  static_cast<void>(fchown(file, folder.st_uid, folder.st_gid) == 0);
}

std::string folderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder;
}

}  // namespace brevant
