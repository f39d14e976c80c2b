// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/date.h"
#include "platform/url.h"

namespace brevant {

inline constexpr const char* kAppGroupIdentifier = "group.brevant";
inline constexpr const char* kCloudContainerIdentifier = "iCloud.brevant";

// Where things lie, and the few file operations that are not behind a service of their own.
// Thread-safe. Never used on the database file beyond `fileExists`: closing a second descriptor of
// it would drop SQLite's locks.
class FileManager {
 public:
  virtual ~FileManager() = default;

  // The container directory of an app group; absent when the group is unknown or has none.
  virtual std::optional<FileUrl> containerUrl(const std::string& group) const = 0;

  // The user's caches directory as a plain path; absent when the user has none.
  virtual std::optional<std::string> cachesDirectory() const = 0;

  virtual bool fileExists(const std::string& path) const = 0;

  // The whole file; absent when it is missing, unreadable, no regular file or above `limit` bytes.
  virtual std::optional<std::string> contents(const std::string& path, std::size_t limit) const = 0;

  // Empty on success, else what went wrong.
  virtual std::string removeFile(const std::string& path) = 0;

  virtual void setModificationDate(const std::string& path, Date date) = 0;
};

}  // namespace brevant
