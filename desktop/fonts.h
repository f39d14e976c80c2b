// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QJsonValue>
#include <optional>

namespace brevant {

// A font as a view tree describes it. Sizes are in points of the phone, which are Qt's
// device-independent pixels.
struct FontChoice {
  int size = 17;
  QFont::Weight weight = QFont::Normal;
};

// From {"style":"title3"} or {"size":44,"weight":"regular","design":"default"}; absent when it is
// neither. Of an unknown weight or design the default
// is taken.
[[nodiscard]] std::optional<FontChoice> fontFromJson(const QJsonValue& json);
[[nodiscard]] std::optional<QFont::Weight> fontWeightFromJson(const QJsonValue& json);

// Text measures the same at every scale: nothing is rounded to pixels.
[[nodiscard]] QFont makeFont(const FontChoice& choice);

}  // namespace brevant
