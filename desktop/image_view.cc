// SPDX-License-Identifier: MIT
#include "desktop/image_view.h"

#include <QPainter>
#include <cmath>
#include <utility>

#include "desktop/view_limits.h"

namespace brevant {

ImageView::ImageView(ImageSource source, Sizing sizing, double opacity, QWidget* parent)
    : QWidget(parent), source_(std::move(source)), sizing_(sizing), opacity_(opacity) {
  const auto policy = sizing == Sizing::kResizable ? QSizePolicy::Expanding : QSizePolicy::Fixed;
  setSizePolicy(policy, policy);
}

QSize ImageView::sizeHint() const {
  return {static_cast<int>(std::ceil(source_.size.width())),
          static_cast<int>(std::ceil(source_.size.height()))};
}

QSize ImageView::minimumSizeHint() const {
  return sizing_ == Sizing::kResizable ? QSize(1, 1) : sizeHint();
}

QRectF ImageView::target() const {
  QSizeF size = source_.size;
  if (sizing_ == Sizing::kResizable) {
    size =
        source_.keepsShape ? size.scaled(this->size(), Qt::KeepAspectRatio) : QSizeF(this->size());
  } else if (source_.keepsShape) {
    size = size.boundedTo(this->size());
  }
  QRectF rect({0, 0}, size);
  rect.moveCenter(QRectF(this->rect()).center());
  return rect;
}

void ImageView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // On whole pixels of the device, whatever its scale: anything between would blur.
  const QTransform toDevice = painter.deviceTransform();
  const QRectF device = toDevice.mapRect(target());
  const QSize pixels = device.size().toSize();
  if (pixels.isEmpty()) return;
  const QSize most(kMostKeptSide, kMostKeptSide);
  if (drawn_.size() != pixels.boundedTo(most)) drawn_ = source_.draw(pixels.boundedTo(most));
  const QPointF corner(std::round(device.left()), std::round(device.top()));
  painter.setOpacity(opacity_);
  painter.drawImage(toDevice.inverted().mapRect(QRectF(corner, QSizeF(pixels))), drawn_);
  if (drawn_.size() != pixels) drawn_ = {};  // a large one is not worth its memory
}

}  // namespace brevant
