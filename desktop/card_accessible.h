// SPDX-License-Identifier: MIT
#pragma once

namespace brevant {

// Teaches screen readers to ask a CardWindow for its text at the moment they read it, so that
// nothing has to be announced while its timers tick. Once per process, before the first window.
void installCardAccessibility();

}  // namespace brevant
