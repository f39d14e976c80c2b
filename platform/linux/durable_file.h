// SPDX-License-Identifier: MIT

// What every file that several processes share is read and written with.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/save_outcome.h"

namespace brevant {

// The whole file; absent when it is missing, unreadable, no regular file or above `limit` bytes.
// Never waits for a pipe's other end.
std::optional<std::string> readFile(const std::string& path, std::size_t limit);

// Whether anything lies there, a dangling link included.
bool fileExists(const std::string& path);

// The file that the path leads to in the end: a link to a file elsewhere is to stay one when that
// is locked and replaced. The path itself when nothing is there.
std::string linkTarget(const std::string& path);

// Replaces a file that has the contents `expected` (absent: that is not there) so that whatever
// happens it is as before or as after. Absent when it has others by now: somebody who knows nothing
// of our lock saved it meanwhile, and nothing is changed. Keeps owner, group and permissions. Its
// caller holds the lock of the file. What is not saved leaves nothing new behind, except where what
// another program saved could not be put back: that is at "PATH.new" then, as the outcome says.
// What lies there before is kept as "PATH.left".
[[nodiscard]] std::optional<SaveOutcome> replaceFile(const std::string& path,
                                                     const std::optional<std::string>& expected,
                                                     std::string_view contents);

// Makes a file that is there at once and whole, or not at all, and leaves nothing else behind even
// when killed. Not saved when something is there already.
[[nodiscard]] SaveOutcome makeFile(const std::string& path, std::string_view contents);

// Moves a file to a place of the same file system where nothing is (std::errc::file_exists: there
// is something).
[[nodiscard]] std::error_code moveWithoutReplacing(const std::string& from, const std::string& to);

// Makes the directory and those above it, for the user alone and on the disk once this returns.
// Empty on success.
[[nodiscard]] std::string makeDirectories(const std::string& path);

}  // namespace brevant
