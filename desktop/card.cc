// SPDX-License-Identifier: MIT
#include "desktop/card.h"

#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/boxes.h"
#include "desktop/rounded_shape.h"

namespace brevant {
namespace {

constexpr double kShadowBlur = 8;  // standard deviation
constexpr double kShadowDrop = 5;
constexpr int kShadowStops = 16;

// How a blurred edge fades from within the shape, `reach` before the edge, to the same distance
// behind it.
void addFade(QGradient& gradient, double start, double reach, double opacity) {
  for (int i = 0; i <= kShadowStops; ++i) {
    const double place = static_cast<double>(i) / kShadowStops;
    const double distance = (2 * place - 1) * reach;
    // What is left at the end would be seen as an edge.
    const double rest = std::erfc(reach / kShadowBlur / std::numbers::sqrt2) / 2;
    const double depth =
        std::max(0.0, std::erfc(distance / kShadowBlur / std::numbers::sqrt2) / 2 - rest);
    QColor color(Qt::black);
    color.setAlphaF(static_cast<float>(depth * opacity));
    gradient.setColorAt(start + place * (1 - start), color);
  }
}

// A blurred rectangle: what is left between four corners, four edges and the middle.
void drawShadow(QPainter& painter, const QRectF& shape, double radius, double opacity) {
  const double reach =
      std::min(kCardMargin - kShadowDrop, std::min(shape.width(), shape.height()) / 2);
  const double turn = std::clamp(radius, reach, std::min(shape.width(), shape.height()) / 2);
  const QRectF inner = shape.adjusted(turn, turn, -turn, -turn);
  const double outer = turn + reach;  // from the corners' centres to where the shadow ends
  const double start = (turn - reach) / outer;

  painter.setPen(Qt::NoPen);
  QLinearGradient edge({0, 0}, {0, outer});
  addFade(edge, start, reach, opacity);
  QRadialGradient corner({0, 0}, outer);
  addFade(corner, start, reach, opacity);
  // Turned by quarters: the edge below the inner rectangle, and the corner that follows it.
  const QPointF corners[] = {inner.bottomLeft(), inner.bottomRight(), inner.topRight(),
                             inner.topLeft()};
  for (int side = 0; side < 4; ++side) {
    painter.save();
    painter.translate(corners[side]);
    painter.rotate(-90 * side);
    const double length = side % 2 == 0 ? inner.width() : inner.height();
    painter.fillRect(QRectF(0, 0, length, outer), edge);
    painter.fillRect(QRectF(-outer, 0, outer, outer), corner);
    painter.restore();
  }
  QColor middle(Qt::black);
  middle.setAlphaF(static_cast<float>(opacity));
  painter.fillRect(inner, middle);
}

class Card : public QWidget {
 public:
  Card(std::unique_ptr<QWidget> content, QSize size, const CardLook& look) : look_(look) {
    setFixedSize(size.grownBy({kCardMargin, kCardMargin, kCardMargin, kCardMargin}));
    fillWith(*this, std::move(content), Qt::AlignCenter);
    layout()->setContentsMargins(kCardMargin, kCardMargin, kCardMargin, kCardMargin);
  }

  [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QRectF shape =
        QRectF(rect()).marginsRemoved({kCardMargin, kCardMargin, kCardMargin, kCardMargin});
    QPainter painter(this);
    drawShadow(painter, shape.translated(0, kShadowDrop), look_.cornerRadius, look_.shadowOpacity);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(roundedShape(shape, look_.cornerRadius), look_.edge);
    const double line = 1 / painter.deviceTransform().m11();
    painter.fillPath(
        roundedShape(shape.adjusted(line, line, -line, -line), look_.cornerRadius - line),
        look_.fill);
  }

 private:
  CardLook look_;
};

}  // namespace

std::unique_ptr<QWidget> makeCard(std::unique_ptr<QWidget> content, QSize size,
                                  const CardLook& look) {
  return std::make_unique<Card>(std::move(content), size, look);
}

}  // namespace brevant
