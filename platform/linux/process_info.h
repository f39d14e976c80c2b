// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/process_info.h"

namespace brevant {

// `systemVersion` as people write it, e.g. "16.1"; what is missing or no number counts as 0.
std::unique_ptr<ProcessInfo> makeProcessInfo(const std::string& systemVersion, bool isiOSAppOnMac);

}  // namespace brevant
