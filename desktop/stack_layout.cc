// SPDX-License-Identifier: MIT
#include "desktop/stack_layout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <numeric>

namespace brevant {
namespace {

struct Length {
  int least, wanted, most;
  bool grows;
};

// Gives what is left over, in equal parts, to those that grow.
void grow(std::vector<int>& lengths, const std::vector<Length>& wishes, int spare) {
  while (spare > 0) {
    std::vector<std::size_t> growing;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
      if (wishes[i].grows && lengths[i] < wishes[i].most) growing.push_back(i);
    }
    if (growing.empty()) return;
    const int part = std::max(1, spare / static_cast<int>(growing.size()));
    for (const std::size_t i : growing) {
      const int more = std::min({part, wishes[i].most - lengths[i], spare});
      lengths[i] += more;
      spare -= more;
    }
  }
}

int sumAtLevel(const std::vector<Length>& wishes, int level) {
  return std::accumulate(wishes.begin(), wishes.end(), 0, [&](int sum, const Length& wish) {
    return sum + std::max(wish.least, std::min(wish.wanted, level));
  });
}

// Cuts the longest down to one level, at which everything fits.
void shrink(std::vector<int>& lengths, const std::vector<Length>& wishes, int room) {
  int level = 0;
  for (const Length& wish : wishes) level = std::max(level, wish.wanted);
  int fits = 0;
  while (level - fits > 1) {
    const int middle = (level + fits) / 2;
    (sumAtLevel(wishes, middle) <= room ? fits : level) = middle;
  }
  for (std::size_t i = 0; i < wishes.size(); ++i) {
    lengths[i] = std::max(wishes[i].least, std::min(wishes[i].wanted, fits));
  }
  // A pixel each to the first of those that were cut, as far as they reach.
  int spare = room - std::accumulate(lengths.begin(), lengths.end(), 0);
  for (std::size_t i = 0; i < wishes.size() && spare > 0; ++i) {
    if (lengths[i] >= wishes[i].wanted) continue;
    ++lengths[i];
    --spare;
  }
}

}  // namespace

StackLayout::StackLayout(Qt::Orientation orientation, int spacing, QWidget* parent)
    : QLayout(parent), orientation_(orientation) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(spacing);
}

StackLayout::~StackLayout() = default;

void StackLayout::addItem(QLayoutItem* item) {
  items_.emplace_back(item);
  invalidate();
}

QLayoutItem* StackLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* StackLayout::takeAt(int index) {
  if (index < 0 || index >= count()) return nullptr;
  const auto place = items_.begin() + index;
  QLayoutItem* item = place->release();
  items_.erase(place);
  invalidate();
  return item;
}

void StackLayout::invalidate() {
  wishes_.reset();
  QLayout::invalidate();
}

int StackLayout::spaces() const {
  return std::max(0, count() - 1) * spacing();
}

int StackLayout::along(QSize size) const {
  return orientation_ == Qt::Horizontal ? size.width() : size.height();
}

QSize StackLayout::sized(int along, int across) const {
  return orientation_ == Qt::Horizontal ? QSize(along, across) : QSize(across, along);
}

QSize StackLayout::total(QSize (QLayoutItem::*measure)() const) const {
  int length = spaces();
  int width = 0;
  for (const auto& item : items_) {
    const QSize size = (item.get()->*measure)();
    length += along(size);
    width = std::max(width, along(size.transposed()));
  }
  return sized(length, width);
}

const StackLayout::Wishes& StackLayout::wishes() const {
  if (wishes_) return *wishes_;
  Wishes wishes{total(&QLayoutItem::sizeHint), total(&QLayoutItem::minimumSize), {}};
  for (const auto& item : items_) {
    wishes.expanding |= item->expandingDirections();
    wishes.hasHeightForWidth |= item->hasHeightForWidth();
  }
  return wishes_.emplace(wishes);
}

int StackLayout::heightForWidth(int width) const {
  const auto heightOf = [](QLayoutItem& item, int itemWidth) {
    return item.hasHeightForWidth() ? item.heightForWidth(itemWidth) : item.sizeHint().height();
  };
  int height = 0;
  if (orientation_ == Qt::Vertical) {
    for (const auto& item : items_) height += heightOf(*item, width);
    return height + spaces();
  }
  const std::vector<int> widths = lengths({width, QLAYOUTSIZE_MAX});
  for (std::size_t i = 0; i < items_.size(); ++i) {
    height = std::max(height, heightOf(*items_[i], widths[i]));
  }
  return height;
}

std::vector<int> StackLayout::lengths(QSize room) const {
  std::vector<Length> wishes;
  std::vector<int> lengths;
  for (const auto& item : items_) {
    int wanted = along(item->sizeHint());
    if (orientation_ == Qt::Vertical && item->hasHeightForWidth()) {
      wanted = item->heightForWidth(std::min(room.width(), item->sizeHint().width()));
    }
    const int least = std::min(along(item->minimumSize()), wanted);
    wishes.push_back({least, wanted, along(item->maximumSize()),
                      item->expandingDirections().testFlag(orientation_)});
    lengths.push_back(wanted);
  }
  const int available = along(room) - spaces();
  const int spare = available - std::accumulate(lengths.begin(), lengths.end(), 0);
  if (spare > 0) grow(lengths, wishes, spare);
  if (spare < 0) shrink(lengths, wishes, available);
  return lengths;
}

// The children's own alignment does the rest: each gets all of the room across.
void StackLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const std::vector<int> all = lengths(rect.size());
  const int used = std::accumulate(all.begin(), all.end(), spaces());
  int position = std::max(0, along(rect.size()) - used) / 2;
  const auto direction = parentWidget()->layoutDirection();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const bool isRow = orientation_ == Qt::Horizontal;
    const QPoint corner = rect.topLeft() + (isRow ? QPoint(position, 0) : QPoint(0, position));
    const QRect place(corner, sized(all[i], along(rect.size().transposed())));
    items_[i]->setGeometry(isRow ? QStyle::visualRect(direction, rect, place) : place);
    position += all[i] + spacing();
  }
}

}  // namespace brevant
