// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/options.h"

namespace brevant {

// Draws the picture that the options ask for into its file, with what `brevant` says is to be
// shown. It needs no display. Returns the program's exit code; on failure one line on stderr has
// said why, and the file is as it was.
[[nodiscard]] int drawPicture(int argc, char** argv, const Options& options);

}  // namespace brevant
