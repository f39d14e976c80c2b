// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace brevant {

// Why a text from outside must not be given to the JSON parser: it nests beyond kMaxJsonDepth, or
// holds a NUL, at which the parser would stop as if all had been read. Empty when it may, which
// does not say that it is JSON.
[[nodiscard]] std::string harmInJson(std::string_view text);

}  // namespace brevant
