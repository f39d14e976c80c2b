// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/file_manager.h"

namespace brevant {

// `container` is the app group's directory (empty: it has none), which need not exist.
std::unique_ptr<FileManager> makeFileManager(const std::string& container);

}  // namespace brevant
