// SPDX-License-Identifier: MIT
#include "desktop/image_source.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <memory>

#include "desktop/json_values.h"
#include "desktop/plain_png.h"
#include "desktop/view_limits.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kLargestSide = 4096;

QImage decodedPng(const QByteArray& base64, qint64& pixels) {
  QByteArray png = plainPng(QByteArray::fromBase64(base64));
  QBuffer buffer(&png);
  QImageReader reader(&buffer, "png");
  // A few bytes can claim to be gigabytes of pixels.
  const QSize size = reader.size();
  if (!size.isValid() || size.width() > kLargestSide || size.height() > kLargestSide) return {};
  const qint64 area = qint64{size.width()} * size.height();
  if (area > pixels) {
    reportOnce(u"pictures of more than %1 pixels"_s.arg(kMostPixels));
    return {};
  }
  pixels -= area;
  QImageReader::setAllocationLimit(kPictureMegabytes);
  return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// One that has more pixels than are ever drawn is kept smaller.
QImage kept(const QImage& image) {
  if (std::max(image.width(), image.height()) <= kMostKeptSide) return image;
  return image.scaled(kMostKeptSide, kMostKeptSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

// The symbols lie beside the program, in a build tree and installed, wherever that is.
QString symbolFile(const QString& name) {
  const QString file = u"/symbols/%1.svg"_s.arg(name);
  const QString beside = QCoreApplication::applicationDirPath() + u"/../share/brevant"_s + file;
  return QFile::exists(beside) ? beside : QStringLiteral(BREVANT_DATA_DIR) + file;
}

QImage tinted(QSvgRenderer& symbol, const QColor& color, QSize pixels) {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  symbol.render(&painter);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), color);
  return image;
}

}  // namespace

std::optional<ImageSource> pictureFromJson(const QJsonValue& image, qint64& pixels) {
  const QImage decoded = decodedPng(image["png"_L1].toString().toLatin1(), pixels);
  if (decoded.isNull()) {
    reportOnce(u"an image without a sound PNG"_s);
    return std::nullopt;
  }
  const double scale = numberFromJson(image["scale"_L1], 0.1, 10).value_or(1);
  const double width =
      numberFromJson(image["width"_L1], 1, kLargestSide).value_or(decoded.width() / scale);
  const double height =
      numberFromJson(image["height"_L1], 1, kLargestSide).value_or(decoded.height() / scale);
  return ImageSource{{width, height}, false, [picture = kept(decoded)](QSize size) {
                       if (picture.size() == size) return picture;
                       return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
                     }};
}

std::optional<ImageSource> symbolNamed(const QString& name, const QColor& color, int fontSize) {
  const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar c) {
    return (c.unicode() < 128 && c.isLetterOrNumber()) || c == u'.' || c == u'-' || c == u'_';
  });
  if (!isPlain || !QFile::exists(symbolFile(name))) {
    reportOnce(u"unknown symbol "_s + name);
    return std::nullopt;
  }
  auto symbol = std::make_shared<QSvgRenderer>(symbolFile(name));
  const QSizeF size =
      QSizeF(symbol->defaultSize()).scaled(fontSize, fontSize, Qt::KeepAspectRatioByExpanding);
  if (!symbol->isValid() || size.isEmpty()) {
    reportOnce(u"unreadable symbol "_s + name);
    return std::nullopt;
  }
  return ImageSource{size, true,
                     [symbol, color](QSize pixels) { return tinted(*symbol, color, pixels); }};
}

}  // namespace brevant
