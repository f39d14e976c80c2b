// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_manager.h"

namespace brevant {

// The path of something in the app group's container as the whole system forms it: the URL's
// absolute string with every "file:" deleted. It begins with three slashes and keeps percent
// escapes as the URL spells them, so a container whose path needs escapes is not found by it; the
// main application relies on both. Absent when the container is unavailable.
std::optional<std::string> containerPath(const FileManager& files, std::string_view component);

}  // namespace brevant
