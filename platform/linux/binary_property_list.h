// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace brevant {

// Whether a binary property list is small and shallow once its shared objects are written out. Its
// objects refer to each other by number, so a file of a hundred bytes can stand for a tree that
// fills the memory or never ends; this is asked before anything builds that tree.
bool isHarmlessBinaryPropertyList(std::string_view bytes);

// Whether the library reads all of each value in a harmless one: it ends a text at a NUL, and an
// integer after 64 bits.
bool keepsValuesOfBinaryPropertyList(std::string_view bytes);

}  // namespace brevant
