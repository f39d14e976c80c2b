// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QJsonValue>
#include <QSizeF>
#include <QString>
#include <functional>
#include <optional>

namespace brevant {

// What an image view shows: how large it is by itself, in points, and how it looks with so many
// pixels.
struct ImageSource {
  QSizeF size;
  bool keepsShape = false;  // a symbol is never stretched
  std::function<QImage(QSize pixels)> draw;
};

// From an archived image; absent when there is no sound PNG in it, or one of more than `pixels`,
// which it takes its own from.
[[nodiscard]] std::optional<ImageSource> pictureFromJson(const QJsonValue& image, qint64& pixels);
// The same picture where its own colours can be told from `ground`; else on a disc behind it.
[[nodiscard]] ImageSource readableOn(const QColor& ground, ImageSource picture);
// A symbol of the program's own, in one colour, for text of that size; absent, with a report, when
// it is not there.
[[nodiscard]] std::optional<ImageSource> symbolNamed(const QString& name, const QColor& color,
                                                     int fontSize);

}  // namespace brevant
