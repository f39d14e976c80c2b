#pragma once

#include <QByteArray>
#include <QImage>
#include <QJsonObject>
#include <QRect>
#include <QWidget>
#include <memory>

#include "desktop/drawing_context.h"

namespace brevant {

// The clock of these drawings stands at 1,000,000,000 seconds since 1970.
inline constexpr double kNow = 1e9;
[[nodiscard]] DrawingContext drawingContext(const char* locale = "en_US");

// A view tree as JSON, in which 'single' quotes stand for double ones.
[[nodiscard]] QJsonObject viewTree(QByteArray text);
// The same, built.
[[nodiscard]] std::unique_ptr<QWidget> viewOf(const QByteArray& text,
                                              const DrawingContext& context = drawingContext());

// A widget on a transparent ground; without a size at the size that it wants.
[[nodiscard]] QImage drawn(QWidget& widget, QSize size = {}, double scale = 1);
[[nodiscard]] QImage drawn(const QByteArray& view, QSize size = {}, double scale = 1);

// The smallest rectangle with everything that is not transparent.
[[nodiscard]] QRect inkOf(const QImage& image);
// How much of the image is covered, in pixels.
[[nodiscard]] double coverageOf(const QImage& image);

// A PNG in base64: a square of `side` pixels whose quarters are red, green (top), blue and white.
[[nodiscard]] QByteArray fourColors(int side);

}  // namespace brevant
