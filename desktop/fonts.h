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
  QString family;  // empty: the system's
};

// From {"style":"title3"} or {"size":44,"weight":"regular","design":"default"}; absent when it is
// neither. A weight or design that is not known is taken as the default.
[[nodiscard]] std::optional<FontChoice> fontFromJson(const QJsonValue& json);
[[nodiscard]] std::optional<QFont::Weight> fontWeightFromJson(const QJsonValue& json);

// Text measures the same at every scale: nothing is rounded to pixels.
[[nodiscard]] QFont makeFont(const FontChoice& choice);

}  // namespace brevant
