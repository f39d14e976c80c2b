// SPDX-License-Identifier: MIT
#pragma once

namespace brevant {

// Whether this program is started when people log in: a file in the desktop's own folder for that
// says so, which other programs show and change too.
[[nodiscard]] bool startsAtLogin();

// Writes or removes that file; false when that did not work.
[[nodiscard]] bool setStartsAtLogin(bool wanted);

}  // namespace brevant
