// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QJsonValue>
#include <QString>
#include <optional>

#include "desktop/fonts.h"
#include "desktop/text_view.h"

namespace brevant {

// What a view passes on to everything inside it, unless that has its own.
struct ViewEnvironment {
  FontChoice font;
  std::optional<QFont::Weight> fontWeight;  // replaces that of the font
  bool monospacedDigit = false;
  int lineLimit = 0;
  double minimumScaleFactor = 1;
  TextAlignment textAlignment = TextAlignment::kLeading;
  QColor foregroundColor;
  double opacity = 1;

  // Takes a modifier up; false when it is not one of these.
  bool apply(const QString& modifier, const QJsonValue& value);

  [[nodiscard]] TextLook textLook() const;
};

}  // namespace brevant
