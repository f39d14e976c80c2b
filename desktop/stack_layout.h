// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <memory>
#include <optional>
#include <vector>

namespace brevant {

// The layout of a stack of a view tree, in one direction. Unlike Qt's box layout it makes room by
// taking it from the largest first, so that a long name is cut before a short time is, and it can
// take lines from a text that wraps.
//
// A child's alignment is its place across the stack. In a horizontal stack the first child is at
// the leading end, which is on the right where the language reads so.
class StackLayout : public QLayout {
 public:
  StackLayout(Qt::Orientation orientation, int spacing, QWidget* parent);
  ~StackLayout() override;

  void addItem(QLayoutItem* item) override;
  [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  [[nodiscard]] QSize sizeHint() const override { return wishes().size; }
  [[nodiscard]] QSize minimumSize() const override { return wishes().minimumSize; }
  [[nodiscard]] Qt::Orientations expandingDirections() const override { return wishes().expanding; }
  [[nodiscard]] bool hasHeightForWidth() const override { return wishes().hasHeightForWidth; }
  [[nodiscard]] int heightForWidth(int width) const override;
  void invalidate() override;
  void setGeometry(const QRect& rect) override;

 private:
  // What the layout wants as a whole. Kept, since Qt asks several times at every level of a tree.
  struct Wishes {
    QSize size, minimumSize;
    Qt::Orientations expanding;
    bool hasHeightForWidth = false;
  };

  [[nodiscard]] const Wishes& wishes() const;
  [[nodiscard]] int spaces() const;
  [[nodiscard]] int along(QSize size) const;
  [[nodiscard]] QSize sized(int along, int across) const;
  [[nodiscard]] QSize total(QSize (QLayoutItem::*measure)() const) const;
  [[nodiscard]] std::vector<int> lengths(QSize room) const;

  Qt::Orientation orientation_;
  std::vector<std::unique_ptr<QLayoutItem>> items_;
  mutable std::optional<Wishes> wishes_;
};

}  // namespace brevant
