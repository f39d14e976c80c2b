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

// At `temporary`, where nothing is, to take the place of `path`.
bool writeNewFile(const std::string& temporary, std::string_view contents,
                  const std::string& path) {
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

enum class Swap { kDone, kOtherContents, kFailed, kNotPutBack };

bool exchange(const std::string& a, const std::string& b) {
  return renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0;
}

// Not every file system can exchange, and a sandbox may forbid it.
bool cannotExchange() {
  return errno == EINVAL || errno == ENOSYS || errno == EPERM;
}

bool isSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// Puts back what came out of `path`, and so on as long as something comes out that we did not put
// in: then it is newer than what was just put back. Told apart without reading, which may be what
// fails. Gives up after a few tries: `temporary` is then what another program saved.
Swap putBack(const std::string& path, const std::string& temporary, const struct stat& ours) {
  constexpr int kMostTries = 10;
  struct stat placed = ours;
  for (int tries = 0; tries < kMostTries; ++tries) {
    struct stat newest {};
    struct stat out {};
    if (lstat(temporary.c_str(), &newest) != 0 || !exchange(temporary, path)) continue;
    if (lstat(temporary.c_str(), &out) == 0 && isSameFile(out, placed)) return Swap::kOtherContents;
    placed = newest;
  }
  return Swap::kNotPutBack;
}

// Between a look at the file and its replacement somebody can always save it. So the two change
// places, and what came out is looked at: what nobody has seen yet is put back.
Swap swapIn(const std::string& path, const std::string& temporary,
            const std::optional<std::string>& expected) {
  if (!holds(path, expected)) return Swap::kOtherContents;
  if (!expected) {
    const std::error_code error = moveWithoutReplacing(temporary, path);
    errno = error.value();
    if (!error) return Swap::kDone;
    return errno == EEXIST ? Swap::kOtherContents : Swap::kFailed;
  }
  struct stat ours {};
  if (lstat(temporary.c_str(), &ours) != 0) return Swap::kFailed;
  if (exchange(temporary, path)) {
    if (!holds(temporary, expected)) return putBack(path, temporary, ours);
    unlink(temporary.c_str());
    return Swap::kDone;
  }
  const bool replaces = cannotExchange() && rename(temporary.c_str(), path.c_str()) == 0;
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

// What somebody left who was killed may be what another program had saved. A folder stays in the
// way.
void keepLeftover(const std::string& from, const std::string& to) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(from, error);
  if (!std::filesystem::is_directory(status)) rename(from.c_str(), to.c_str());
}

// One temporary name for all of a folder, so that what a kill leaves is used up by the next.
SaveOutcome makeFileByRenaming(const std::string& path, std::string_view contents) {
  const std::string temporary = folderOf(path) + "/.saving";
  const FileLock lock(temporary + ".lock");
  if (!lock.held()) return notSaved(lock.problem());
  unlink(temporary.c_str());
  if (!writeNewFile(temporary, contents, path) ||
      swapIn(path, temporary, std::nullopt) != Swap::kDone) {
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
  keepLeftover(temporary, path + ".left");
  const bool written = writeNewFile(temporary, contents, path);
  const bool isOurs = written || errno != EEXIST;
  const Swap swap = written ? swapIn(path, temporary, expected) : Swap::kFailed;
  if (swap == Swap::kDone) return flushed(path);
  std::string why = problem(written ? path : temporary);
  if (swap == Swap::kNotPutBack) {
    return notSaved(why + "; what another program saved meanwhile is at " + temporary);
  }
  if (isOurs) unlink(temporary.c_str());
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
  // Where /proc is not mounted nothing without a name can be given one.
  return errno == ENOENT ? makeFileByRenaming(path, contents) : notSaved(problem(path));
}

std::error_code moveWithoutReplacing(const std::string& from, const std::string& to) {
  constexpr int kHere = AT_FDCWD;
  bool moved = renameat2(kHere, from.c_str(), kHere, to.c_str(), RENAME_NOREPLACE) == 0;
  if (!moved && cannotExchange()) {
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
