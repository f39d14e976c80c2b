// SPDX-License-Identifier: MIT

// Whose the files are that this program makes: their user's, also when root runs it.
#pragma once

#include <string>

namespace brevant {

// Gives the open file, which is to take the place of the one at `path`, the owner, group and
// permissions of that. Where the group cannot be given away its permissions go, rather than to
// another group. False, with errno, when it cannot become the owner's.
[[nodiscard]] bool takeAfter(int file, const std::string& path);

// Gives what root made at `path` (open as `file`) to the owner of the folder; nothing for others.
void giveToOwnerOfFolder(int file, const std::string& path);

// The folder in which the path lies.
std::string folderOf(const std::string& path);

}  // namespace brevant
