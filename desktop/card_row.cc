// SPDX-License-Identifier: MIT
#include "desktop/card_row.h"

namespace brevant {
namespace {

constexpr int kGap = 8;
constexpr int kOverlap = 2 * kCardMargin - kGap;

}  // namespace

std::unique_ptr<QWidget> makeCardRow(std::vector<std::unique_ptr<QWidget>> cards,
                                     Qt::Orientation orientation, Qt::LayoutDirection direction) {
  auto row = std::make_unique<QWidget>();
  const bool isReversed = orientation == Qt::Horizontal && direction == Qt::RightToLeft;
  QPoint place;
  QSize size;
  for (std::size_t i = 0; i < cards.size(); ++i) {
    QWidget* card = cards[isReversed ? cards.size() - 1 - i : i].release();
    card->setParent(row.get());
    card->setGeometry(QRect(place, card->sizeHint()));
    size = size.expandedTo({card->geometry().right() + 1, card->geometry().bottom() + 1});
    place = orientation == Qt::Horizontal ? QPoint(size.width() - kOverlap, 0)
                                          : QPoint(0, size.height() - kOverlap);
  }
  row->setFixedSize(size);
  return row;
}

}  // namespace brevant
