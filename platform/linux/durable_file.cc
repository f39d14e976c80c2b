// SPDX-License-Identifier: MIT
#include "platform/linux/durable_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_lock.h"
#include "platform/linux/file_owner.h"

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

// At `temporary`, to take the place of `path`. One that is there was left by somebody who was
// killed.
bool writeNewFile(const std::string& temporary, std::string_view contents,
                  const std::string& path) {
  unlink(temporary.c_str());
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
  Descriptor file(open(temporary.c_str(), kFlags, kOwnerOnly));
  if (!file) return false;
  if (fileExists(path)) {
    if (!takeAfter(file.number(), path)) return false;
  } else {
    giveToOwnerOfFolder(file.number(), path);
  }
  return writeAll(file.number(), contents) && fsync(file.number()) == 0 && file.close();
}

bool flushFolder(const std::string& path) {
  const Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return folder && fsync(folder.number()) == 0;
}

// Of a change that everybody sees already.
SaveOutcome flushed(const std::string& path) {
  if (flushFolder(folderOf(path))) return {};
  const std::string reason = std::strerror(errno);
  return {SaveOutcome::State::kUnconfirmed,
          path + ": it is replaced, but perhaps not on the disk yet: " + reason};
}

bool holds(const std::string& path, const std::optional<std::string>& contents) {
  return contents ? readFile(path, contents->size()) == contents : !fileExists(path);
}

enum class Swap { kDone, kOtherContents, kFailed };

bool exchange(const std::string& a, const std::string& b) {
  return renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0;
}

// Puts back what came out of `path`, and so on as long as something comes out that we did not put
// in: then it is newer than what was just put back.
Swap putBack(const std::string& path, const std::string& temporary, std::string_view ours) {
  constexpr int kMostTries = 3;  // what is not put back is lost
  std::optional<std::string> placed(ours);
  while (true) {
    std::optional<std::string> newest = readFile(temporary, SIZE_MAX);
    for (int failures = 0; !exchange(temporary, path);) {
      if (++failures == kMostTries) return Swap::kFailed;
    }
    if (holds(temporary, placed)) return Swap::kOtherContents;
    placed = std::move(newest);
  }
}

// Between a look at the file and its replacement somebody can always save it. So the two change
// places, and what came out is looked at: what nobody has seen yet is put back.
Swap swapIn(const std::string& path, const std::string& temporary,
            const std::optional<std::string>& expected, std::string_view contents) {
  if (!holds(path, expected)) return Swap::kOtherContents;
  if (!expected) {
    const std::error_code error = moveWithoutReplacing(temporary, path);
    errno = error.value();
    if (!error) return Swap::kDone;
    return errno == EEXIST ? Swap::kOtherContents : Swap::kFailed;
  }
  if (exchange(temporary, path)) {
    if (!holds(temporary, expected)) return putBack(path, temporary, contents);
    unlink(temporary.c_str());
    return Swap::kDone;
  }
  // Not every file system can do that.
  const bool replaces =
      (errno == EINVAL || errno == ENOSYS) && rename(temporary.c_str(), path.c_str()) == 0;
  return replaces ? Swap::kDone : Swap::kFailed;
}

// A file without a name, which goes with its maker; none where the file system has no such thing.
Descriptor makeNameless(const std::string& folder) {
  return Descriptor(open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kOwnerOnly));
}

bool giveName(const Descriptor& file, const std::string& path) {
  const std::string nameless = "/proc/self/fd/" + std::to_string(file.number());
  return linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

// One temporary name for all of a folder, so that what a kill leaves is used up by the next.
SaveOutcome makeFileByRenaming(const std::string& path, std::string_view contents) {
  const std::string temporary = folderOf(path) + "/.saving";
  const FileLock lock(temporary + ".lock");
  if (!lock.held()) return notSaved(lock.problem());
  if (!writeNewFile(temporary, contents, path) ||
      swapIn(path, temporary, std::nullopt, contents) != Swap::kDone) {
    std::string why = problem(path);
    unlink(temporary.c_str());
    return notSaved(std::move(why));
  }
  return flushed(path);
}

}  // namespace

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

std::optional<SaveOutcome> replaceFile(const std::string& path,
                                       const std::optional<std::string>& expected,
                                       std::string_view contents) {
  const std::string temporary = path + ".new";
  const bool written = writeNewFile(temporary, contents, path);
  const Swap swap = written ? swapIn(path, temporary, expected, contents) : Swap::kFailed;
  if (swap == Swap::kDone) return flushed(path);
  std::string why = problem(written ? path : temporary);
  unlink(temporary.c_str());
  if (swap == Swap::kOtherContents) return std::nullopt;
  return notSaved(std::move(why));
}

SaveOutcome makeFile(const std::string& path, std::string_view contents) {
  const Descriptor file = makeNameless(folderOf(path));
  if (!file) return makeFileByRenaming(path, contents);
  giveToOwnerOfFolder(file.number(), path);
  if (writeAll(file.number(), contents) && fsync(file.number()) == 0 && giveName(file, path)) {
    return flushed(path);
  }
  return notSaved(problem(path));
}

std::error_code moveWithoutReplacing(const std::string& from, const std::string& to) {
  constexpr int kHere = AT_FDCWD;
  bool moved = renameat2(kHere, from.c_str(), kHere, to.c_str(), RENAME_NOREPLACE) == 0;
  if (!moved && (errno == EINVAL || errno == ENOSYS)) {  // not every file system can do that
    moved = link(from.c_str(), to.c_str()) == 0;
    if (moved) unlink(from.c_str());
  }
  return moved ? std::error_code() : std::error_code(errno, std::generic_category());
}

std::string makeDirectories(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return "";
  const std::string parent = std::filesystem::path(path).parent_path();
  if (!parent.empty() && parent != path) {
    if (std::string why = makeDirectories(parent); !why.empty()) return why;
  }
  if (mkdir(path.c_str(), 0700) != 0) return errno == EEXIST ? "" : problem(path);
  const Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) giveToOwnerOfFolder(folder.number(), path);
  return flushFolder(folderOf(path)) ? "" : problem(folderOf(path));
}

}  // namespace brevant
