#include "platform/linux/durable_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brevant {
namespace {

constexpr mode_t kOwnerOnly = 0600;

std::string problem(const std::string& path) {
  return path + ": " + std::strerror(errno);
}

bool writeAll(int file, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = write(file, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool writeNewFile(const std::string& path, std::string_view contents, mode_t mode) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, mode));
  return file && fchmod(file.number(), mode) == 0 && writeAll(file.number(), contents) &&
         fsync(file.number()) == 0 && file.close();
}

bool flushDirectory(const std::string& path) {
  const Descriptor directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return directory && fsync(directory.number()) == 0;
}

std::string directoryOf(const std::string& path) {
  const std::string directory = std::filesystem::path(path).parent_path();
  return directory.empty() ? "." : directory;
}

}  // namespace

FileLock::FileLock(const std::string& path)
    : file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly)) {
  int result = -1;
  do {
    result = file_ ? flock(file_.number(), LOCK_EX) : -1;
  } while (file_ && result != 0 && errno == EINTR);
  if (result != 0) file_.close();
}

std::optional<std::string> readFile(const std::string& path, std::size_t limit) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status {};
  if (!file || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (static_cast<std::size_t>(status.st_size) > limit) return std::nullopt;
  std::string contents(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t size = 0;
  while (size < contents.size()) {
    const ssize_t count = read(file.number(), contents.data() + size, contents.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;  // became shorter meanwhile
    size += static_cast<std::size_t>(count);
  }
  contents.resize(size);
  return contents;
}

bool fileExists(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 || errno != ENOENT;
}

std::string linkTarget(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? path : target.string();
}

std::string replaceFile(const std::string& path, std::string_view contents) {
  struct stat old {};
  const bool exists = stat(path.c_str(), &old) == 0;
  const std::string temporary = path + ".new";
  std::string why;
  if (!writeNewFile(temporary, contents, exists ? old.st_mode & 07777U : kOwnerOnly)) {
    why = problem(temporary);
  } else if (rename(temporary.c_str(), path.c_str()) != 0) {
    why = problem(path);
  }
  if (!why.empty()) {
    unlink(temporary.c_str());
    return why;
  }
  if (!flushDirectory(directoryOf(path))) return problem(directoryOf(path));
  return "";
}

std::string makeDirectories(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return "";
  const std::string parent = std::filesystem::path(path).parent_path();
  if (!parent.empty() && parent != path) {
    if (std::string why = makeDirectories(parent); !why.empty()) return why;
  }
  if (mkdir(path.c_str(), 0700) != 0) return errno == EEXIST ? "" : problem(path);
  return flushDirectory(directoryOf(path)) ? "" : problem(directoryOf(path));
}

}  // namespace brevant
