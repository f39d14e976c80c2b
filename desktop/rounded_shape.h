// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace brevant {

// A rectangle whose corners are as round as circles of that radius, but whose edges pass into them
// without a sudden bend. A radius of half the smaller side or more gives a capsule.
[[nodiscard]] QPainterPath roundedShape(const QRectF& rect, double radius);

}  // namespace brevant
