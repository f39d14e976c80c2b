// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QJsonValue>
#include <QString>
#include <optional>

namespace brevant {

// Values of a view tree. Whoever wrote it may have meant something else, so each is absent when it
// is not of its kind, and forced into what can be drawn when it is.

[[nodiscard]] std::optional<double> numberFromJson(const QJsonValue& json, double least,
                                                   double most);
// {"red","green","blue","alpha"}, each 0 to 1; alpha may be left out.
[[nodiscard]] std::optional<QColor> colorFromJson(const QJsonValue& json);

// Says on stderr what was left out of a drawing; the same thing only once in a process, however
// often the tree is drawn again.
void reportOnce(const QString& what);

}  // namespace brevant
