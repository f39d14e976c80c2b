// SPDX-License-Identifier: MIT
#include "desktop/rounded_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brevant {
namespace {

// How much earlier than at a circle's radius an edge begins to bend.
constexpr double kReach = 1.3;
constexpr int kSteps = 24;  // lines per corner: too short to be seen at three times the size

}  // namespace

// A corner is a quarter of a superellipse, |x|^n + |y|^n = 1. Its exponent is chosen so that it
// meets the circle on the diagonal: 2 and the circle itself when there is no room to reach further.
QPainterPath roundedShape(const QRectF& rect, double radius) {
  const double half = std::min(rect.width(), rect.height()) / 2;
  const double round = std::min(radius, half);
  QPainterPath path;
  if (round <= 0) {
    path.addRect(rect);
    return path;
  }
  const double reach = std::min(kReach * round, half);
  const double diagonal = 1 - round / reach * (1 - std::numbers::sqrt2 / 2);
  const double power = 2 * -std::log(diagonal) / std::numbers::ln2;  // 2 / exponent

  const QPointF centers[] = {
      {rect.right() - reach, rect.top() + reach},
      {rect.right() - reach, rect.bottom() - reach},
      {rect.left() + reach, rect.bottom() - reach},
      {rect.left() + reach, rect.top() + reach},
  };
  // Clockwise, each corner a quarter turn further than the one before.
  for (int corner = 0; corner < 4; ++corner) {
    for (int step = 0; step <= kSteps; ++step) {
      const double angle = std::numbers::pi / 2 * step / kSteps;
      const double a = reach * std::pow(std::sin(angle), power);
      const double b = reach * std::pow(std::cos(angle), power);
      const QPointF arms[] = {{a, -b}, {b, a}, {-a, b}, {-b, -a}};
      const QPointF point = centers[corner] + arms[corner];
      path.isEmpty() && step == 0 && corner == 0 ? path.moveTo(point) : path.lineTo(point);
    }
  }
  path.closeSubpath();
  return path;
}

}  // namespace brevant
