// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace brevant {

// Files and folders that come into being together: unless they are kept in the end, those that were
// made here go again, and nothing else. What is there already is never replaced.
class NewFiles {
 public:
  // A folder of one's own to build in.
  struct Workshop {
    std::filesystem::path folder;
    std::string trouble;  // why there is none
  };

  NewFiles() = default;
  ~NewFiles();
  NewFiles(const NewFiles&) = delete;
  NewFiles& operator=(const NewFiles&) = delete;

  // The folder and those above it. Empty on success or when it is there, else what went wrong.
  std::string makeFolder(const std::filesystem::path& path);

  // In `parent`; it goes in any case, with all that is left in it.
  Workshop makeWorkshop(const std::filesystem::path& parent);

  // Empty on success, else what went wrong.
  std::string moveIn(const std::filesystem::path& from, const std::filesystem::path& to);

  void keep() { made_.clear(); }

  // Those that others work in as well by now.
  void keepFolders();

 private:
  std::vector<std::filesystem::path> made_;
  std::filesystem::path workshop_;
};

}  // namespace brevant
