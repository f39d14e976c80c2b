// SPDX-License-Identifier: MIT
#include "tests/desktop/drawn.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QPainter>

#include "desktop/view_builder.h"

namespace brevant {

namespace {

template <typename Counts>
QRect placeOf(const QImage& image, Counts counts) {
  QRect place;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (counts(image.pixelColor(x, y))) place |= QRect(x, y, 1, 1);
    }
  }
  return place;
}

}  // namespace

DrawingContext drawingContext(const char* locale) {
  return {ColorScheme::kLight, QLocale(QString::fromLatin1(locale)), [] { return kNow; }, {}, {}};
}

QByteArray text(const QByteArray& letters, const QByteArray& modifiers) {
  return "{'view':'Text','text':'" + letters + "','modifiers':[" + modifiers + "]}";
}

QByteArray box(int width, int height, const QByteArray& color) {
  return text(" ", "{'frame':{'width':" + QByteArray::number(width) + ",'height':" +
                       QByteArray::number(height) + "}},{'background':{'fill':{" + color + "}}}");
}

QByteArray stack(const QByteArray& type, const QByteArrayList& children,
                 const QByteArray& modifiers) {
  return "{'view':'" + type + "','spacing':0,'children':[" + children.join(',') +
         "],'modifiers':[" + modifiers + "]}";
}

QJsonObject viewTree(QByteArray text) {
  QJsonParseError error;
  const QJsonDocument json = QJsonDocument::fromJson(text.replace('\'', '"'), &error);
  if (error.error != QJsonParseError::NoError) qFatal("%s", qPrintable(error.errorString()));
  return json.object();
}

std::unique_ptr<QWidget> viewOf(const QByteArray& text, const DrawingContext& context) {
  return buildView(viewTree(text), context);
}

QImage drawn(QWidget& widget, QSize size, double scale) {
  widget.resize(size.isValid() ? size : widget.sizeHint());
  QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  widget.render(&image, {}, {}, QWidget::DrawChildren);
  return image;
}

QImage drawn(const QByteArray& view, QSize size, double scale) {
  return drawn(*viewOf(view), size, scale);
}

QRect inkOf(const QImage& image) {
  return placeOf(image, [](const QColor& color) { return color.alpha() > 24; });
}

QRect inkOf(const QImage& image, const QColor& color) {
  return placeOf(image, [&](const QColor& each) { return each == color; });
}

double coverageOf(const QImage& image) {
  double covered = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) covered += qAlpha(image.pixel(x, y)) / 255.0;
  }
  return covered;
}

bool isShownInFull(const QWidget& view, const QString& words) {
  for (const QWidget* part : view.findChildren<QWidget*>())
    if (part->accessibleName() == words) return part->width() >= part->sizeHint().width();
  return false;
}

QByteArray fourColors(int side) {
  QImage image(side, side, QImage::Format_RGB32);
  QPainter painter(&image);
  const int half = side / 2;
  painter.fillRect(0, 0, half, half, Qt::red);
  painter.fillRect(half, 0, half, half, Qt::green);
  painter.fillRect(0, half, half, half, Qt::blue);
  painter.fillRect(half, half, half, half, Qt::white);
  painter.end();
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return png.toBase64();
}

}  // namespace brevant
