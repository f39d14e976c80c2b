// SPDX-License-Identifier: MIT
#include "platform/linux/file_manager.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/durable_file.h"

namespace brevant {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

class LinuxFileManager : public FileManager {
 public:
  explicit LinuxFileManager(std::string container) : container_(std::move(container)) {}

  std::optional<FileUrl> containerUrl(const std::string& group) const override {
    if (container_.empty() || group != kAppGroupIdentifier) return std::nullopt;
    return FileUrl::directory(container_);
  }

  std::optional<std::string> cachesDirectory() const override {
    if (const std::string caches = environment("XDG_CACHE_HOME"); caches.starts_with('/')) {
      return caches;
    }
    const std::string home = environment("HOME");
    if (!home.starts_with('/')) return std::nullopt;
    return home + "/.cache";
  }

  bool fileExists(const std::string& path) const override {
    return access(path.c_str(), F_OK) == 0;
  }

  std::optional<std::string> contents(const std::string& path, std::size_t limit) const override {
    return readFile(path, limit);
  }

  std::string removeFile(const std::string& path) override {
    return unlink(path.c_str()) == 0 ? "" : std::strerror(errno);
  }

  void setModificationDate(const std::string& path, Date date) override {
    const double seconds = secondsSince1970(date);
    const double whole = std::floor(seconds);
    timespec times[2] = {{0, UTIME_OMIT}, {}};
    times[1].tv_sec = static_cast<std::time_t>(whole);
    times[1].tv_nsec = static_cast<long>((seconds - whole) * 1e9);
    utimensat(AT_FDCWD, path.c_str(), times, 0);
  }

 private:
  const std::string container_;
};

}  // namespace

std::unique_ptr<FileManager> makeFileManager(const std::string& container) {
  return std::make_unique<LinuxFileManager>(container);
}

}  // namespace brevant
