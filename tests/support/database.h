// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "tests/support/fake_platform.h"
#include "tests/support/temporary_folder.h"

struct sqlite3;

namespace brevant::test {

// A database file as the main application makes it, empty, in a temporary folder of its own that
// goes with the object. `run` and `ask` use a connection of their own each time, as another process
// would.
class TestDatabase {
 public:
  // With a platform, the folder is its container and its files know the database.
  TestDatabase();
  explicit TestDatabase(FakePlatform& fakes);

  // Any number of statements; a failure fails the test.
  void run(const std::string& sql) const { ask(sql); }

  // The rows of the answer, each ended by a line break, columns separated by "|", NULL spelled out.
  std::string ask(const std::string& sql) const;

  // The whole file. Reading it ends the file locks of this process: only while nobody holds one.
  [[nodiscard]] std::string bytes() const { return files.read("database.sqlite"); }

  const TemporaryFolder files;
  const std::filesystem::path folder = files.path;
  const std::string path = folder / "database.sqlite";
};

// Another program's connection with a transaction of that kind, open until "COMMIT" is run, or
// undone by `release` or its end. Exclusive ones keep everybody out, immediate ones let readers in.
class FileLock {
 public:
  explicit FileLock(const TestDatabase& database, const std::string& kind = "EXCLUSIVE");
  ~FileLock() { release(); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  void run(const std::string& sql) const;
  void release();

 private:
  sqlite3* connection_ = nullptr;
};

}  // namespace brevant::test
