// SPDX-License-Identifier: MIT
#pragma once

namespace brevant {

enum class ExitCode { kDone = 0, kNotDone = 1, kWrongUsage = 2 };

}  // namespace brevant
