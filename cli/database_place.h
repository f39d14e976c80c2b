// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/file_manager.h"

namespace brevant {

inline constexpr const char* kDatabaseFile = "database.sqlite";

// The container's path without a final slash; absent when there is none to look for.
std::optional<std::string> containerDirectory(const FileManager& files);

// Why the container is not there or cannot be entered, in one line; absent when it can.
std::optional<std::string> missingContainer(const FileManager& files);

// Why the shared database is not found where it is looked for, in one line; absent when it is.
std::optional<std::string> missingDatabase(const FileManager& files);

// Whether a database in this folder would not be found, as the folder's URL spells it otherwise.
bool needsEscapes(const std::string& directory);

}  // namespace brevant
