// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QColor>
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

// Views as JSON, to put together: a text, a solid box of that size and colour to measure where
// things go, and a stack without spacing. Modifiers are a list as in {'bold':true},{'opacity':1}.
[[nodiscard]] QByteArray text(const QByteArray& letters, const QByteArray& modifiers = {});
[[nodiscard]] QByteArray box(int width, int height,
                             const QByteArray& color = "'red':0,'green':0,'blue':0");
[[nodiscard]] QByteArray stack(const QByteArray& type, const QByteArrayList& children,
                               const QByteArray& modifiers = {});

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
// The same of one colour.
[[nodiscard]] QRect inkOf(const QImage& image, const QColor& color);
// How much of the image is covered, in pixels.
[[nodiscard]] double coverageOf(const QImage& image);

// Whether that text, or timer in words, has all the width that it wants.
[[nodiscard]] bool isShownInFull(const QWidget& view, const QString& words);

// A PNG in base64: a square of `side` pixels whose quarters are red, green (top), blue and white.
[[nodiscard]] QByteArray fourColors(int side);

}  // namespace brevant
