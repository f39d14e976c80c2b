// What every file that several processes share is read and written with.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"

namespace brevant {

// A lock between processes and threads, held from construction to destruction. `path` is a file of
// its own beside what it guards, and stays: removing it would let two holders in. A process that
// dies lets go. Waits as long as another holds it.
class FileLock {
 public:
  explicit FileLock(const std::string& path);

  // False when the lock file cannot be made or locked.
  bool held() const { return static_cast<bool>(file_); }

 private:
  Descriptor file_;
};

// The whole file; absent when it is missing, unreadable, no regular file or above `limit` bytes.
// Never waits for a pipe's other end.
std::optional<std::string> readFile(const std::string& path, std::size_t limit);

// Whether anything lies there, a dangling link included.
bool fileExists(const std::string& path);

// The file that the path leads to in the end: a link to a file elsewhere is to stay one when that
// is locked and replaced. The path itself when nothing is there.
std::string linkTarget(const std::string& path);

// Replaces the file so that whatever happens it is as before or as after, and as after on the disk
// once this returns. Keeps the permissions of a file that is there. Its caller holds the lock of
// the file. Empty on success, else what went wrong; nothing new is then left behind.
[[nodiscard]] std::string replaceFile(const std::string& path, std::string_view contents);

// Makes the directory and those above it, for the user alone and on the disk once this returns.
// Empty on success.
[[nodiscard]] std::string makeDirectories(const std::string& path);

}  // namespace brevant
