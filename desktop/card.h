// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>
#include <memory>

namespace brevant {

// What a card is made of.
struct CardLook {
  QColor fill, edge;  // the edge is a hairline on the inside
  double cornerRadius;
  double shadowOpacity;  // where the shadow is deepest
};

// The space around a card that its shadow takes.
inline constexpr int kCardMargin = 24;

// A rounded card with a soft shadow, and content that fills it and is clipped by it.
[[nodiscard]] std::unique_ptr<QWidget> makeCard(std::unique_ptr<QWidget> content, QSize size,
                                                const CardLook& look);

}  // namespace brevant
