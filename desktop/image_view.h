// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

#include "desktop/image_source.h"

namespace brevant {

// An image of a view tree, pixel for pixel at the screen's scale. One that is resizable takes the
// room there is.
class ImageView : public QWidget {
 public:
  enum class Sizing { kNatural, kResizable };

  ImageView(ImageSource source, Sizing sizing, double opacity, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRectF target() const;

  ImageSource source_;
  Sizing sizing_;
  double opacity_;
  QImage drawn_;  // at the size in pixels that was last needed
};

}  // namespace brevant
