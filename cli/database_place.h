#pragma once

#include <optional>
#include <string>

#include "platform/file_manager.h"

namespace brevant {

inline constexpr const char* kDatabaseFile = "database.sqlite";

// Why the shared database is not found where it is looked for, in one line; absent when it is.
std::optional<std::string> missingDatabase(const FileManager& files);

// Whether a database in this folder would not be found, as the folder's URL spells it otherwise.
bool needsEscapes(const std::string& directory);

}  // namespace brevant
