// SPDX-License-Identifier: MIT
#include "tests/support/failing_disk.h"

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

bool foldersFail = false;
std::function<int(int)> atExchange;
int exchanges = 0;

}  // namespace

// These stand before the C library's own in every program that this is linked into.
extern "C" int fsync(int file) {
  struct stat status {};
  if (foldersFail && fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
    errno = EIO;
    return -1;
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int renameat2(int from, const char* a, int to, const char* b, unsigned flags) {
  if ((flags & RENAME_EXCHANGE) != 0 && atExchange) {
    if (const int error = atExchange(++exchanges)) {
      errno = error;
      return -1;
    }
  }
  return static_cast<int>(syscall(SYS_renameat2, from, a, to, b, flags));
}

namespace brevant::test {

AtExchange::AtExchange(std::function<int(int)> hook) {
  exchanges = 0;
  atExchange = std::move(hook);
}

AtExchange::~AtExchange() {
  atExchange = nullptr;
}

FoldersCannotBeFlushed::FoldersCannotBeFlushed() {
  foldersFail = true;
}

FoldersCannotBeFlushed::~FoldersCannotBeFlushed() {
  foldersFail = false;
}

}  // namespace brevant::test
