// What the widget host tells a view about the place where it is drawn.
#pragma once

namespace brevant {

enum class ColorScheme { kLight, kDark };

enum class WidgetFamily { kSystemSmall, kSystemMedium };

}  // namespace brevant
