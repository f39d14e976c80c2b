// SPDX-License-Identifier: MIT
#include "tests/support/failing_disk.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool foldersFail = false;

}  // namespace

// Stands before the C library's own in every program that this is linked into.
extern "C" int fsync(int file) {
  struct stat status {};
  if (foldersFail && fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
    errno = EIO;
    return -1;
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

namespace brevant::test {

FoldersCannotBeFlushed::FoldersCannotBeFlushed() {
  foldersFail = true;
}

FoldersCannotBeFlushed::~FoldersCannotBeFlushed() {
  foldersFail = false;
}

}  // namespace brevant::test
