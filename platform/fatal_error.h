// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace brevant {

// Prints "Fatal error: " and the message on stderr and aborts the process. For values that the
// presentation cannot do without; it stands in place of a result and never returns.
[[noreturn]] void fatalError(std::string_view message);

}  // namespace brevant
