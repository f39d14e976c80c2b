// SPDX-License-Identifier: MIT
#include "desktop/image_source.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

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

// How bright a colour is to the eye, 0 to 1.
double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one), b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The mean of what is opaque; absent where nothing is.
std::optional<QColor> colorOf(const QImage& picture) {
  double red = 0, green = 0, blue = 0, alpha = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      red += pixel.redF() * pixel.alphaF();
      green += pixel.greenF() * pixel.alphaF();
      blue += pixel.blueF() * pixel.alphaF();
      alpha += pixel.alphaF();
    }
  }
  if (alpha == 0) return std::nullopt;
  const auto mean = [alpha](double sum) { return static_cast<float>(sum / alpha); };
  return QColor::fromRgbF(mean(red), mean(green), mean(blue));
}

QImage onDisc(const QImage& picture, const QColor& disc, QSize pixels) {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(disc);
  painter.drawEllipse(image.rect());
  painter.drawImage((pixels - picture.size()).width() / 2, (pixels - picture.size()).height() / 2,
                    picture);
  return image;
}

}  // namespace

ImageSource readableOn(const QColor& ground, ImageSource picture) {
  constexpr double kLeastContrast = 3, kShareOfDisc = 0.64;
  constexpr int kSample = 16;
  const std::optional<QColor> color = colorOf(picture.draw({kSample, kSample}));
  if (!color || contrast(*color, ground) >= kLeastContrast) return picture;
  const QColor bright(235, 235, 240), dark(44, 44, 46);
  const QColor disc = contrast(*color, bright) > contrast(*color, dark) ? bright : dark;
  picture.draw = [disc, draw = std::move(picture.draw)](QSize pixels) {
    return onDisc(draw(pixels * kShareOfDisc), disc, pixels);
  };
  return picture;
}

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
