// SPDX-License-Identifier: MIT

// What the widget host tells a view about the place where it is drawn.
#pragma once

namespace brevant {

enum class ColorScheme { kLight, kDark };

enum class WidgetFamily { kSystemSmall, kSystemMedium };

struct Environment {
  ColorScheme colorScheme = ColorScheme::kLight;
  WidgetFamily widgetFamily = WidgetFamily::kSystemSmall;
};

}  // namespace brevant
