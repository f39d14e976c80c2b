// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QWidget>
#include <memory>
#include <vector>

#include "desktop/card.h"

namespace brevant {

// What of a card's widget is shadow.
inline constexpr QMargins kCardMargins(kCardMargin, kCardMargin, kCardMargin, kCardMargin);

// Cards side by side or one below the other, so close that their shadows' margins overlap.
[[nodiscard]] std::unique_ptr<QWidget> makeCardRow(std::vector<std::unique_ptr<QWidget>> cards,
                                                   Qt::Orientation orientation,
                                                   Qt::LayoutDirection direction);

}  // namespace brevant
