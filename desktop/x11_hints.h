#pragma once

#include <QWidget>

namespace brevant {

// What the widget toolkit has no word for where the desktop is an X server. Elsewhere these do
// nothing, and windows are plain ones.

// Asks the window manager to show the window on every workspace and to leave it out of the list of
// windows. It is to be called before the window is shown, every time.
void makeDesktopFixture(const QWidget& window);

// Whether transparent windows are blended with what is behind them; only an X server without a
// compositing manager does not.
[[nodiscard]] bool isBlended();

}  // namespace brevant
