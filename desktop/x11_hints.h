// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace brevant {

// What the widget toolkit has no word for where the desktop is an X server. Elsewhere these do
// nothing, and windows are plain ones.

// That the window is shown on every workspace and left out of the list of windows. The first is
// written on the window every time before it is shown; the second asks the window manager
// afterwards, since it may still have been clearing away what was written when the window was last
// hidden.
void declareDesktopFixture(const QWidget& window);
void askForDesktopFixture(const QWidget& window);

// Whether transparent windows are blended with what is behind them; only an X server without a
// compositing manager does not.
[[nodiscard]] bool isBlended();

}  // namespace brevant
