// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>
#include <functional>
#include <limits>

namespace brevant {

enum class ColorScheme { kLight, kDark };

// What a button asks for; the three words that `brevant intent` takes.
struct IntentCall {
  QString name, activityId, operation;
};

// What a drawing takes from outside. Views keep a copy, so whatever the functions capture must
// outlive the widgets. All of it is called on the thread of the widgets.
struct DrawingContext {
  ColorScheme colorScheme = ColorScheme::kLight;
  QLocale locale;               // language of the timers; its direction mirrors the layout
  std::function<double()> now;  // seconds since 1970
  std::function<void(const IntentCall&)> runIntent;  // may be empty: buttons do nothing
  std::function<void(const QString&)> openLink;      // may be empty: links do nothing
  bool isStill = false;  // the clock stands: nothing waits for the next second
  // Points: an image of its own size that is larger would leave no room for anything beside it, and
  // is drawn that large instead.
  double largestImage = std::numeric_limits<double>::infinity();
};

}  // namespace brevant
