// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLayoutItem>
#include <QMargins>
#include <QWidget>
#include <memory>
#include <optional>

namespace brevant {

// What modifiers put around a view: each is a widget with the view in it.

[[nodiscard]] std::unique_ptr<QWidget> paddingAround(std::unique_ptr<QWidget> content,
                                                     QMargins padding);

// A side that is absent is left to the content. A side may also be as large as there is room, up to
// its maximum; QWIDGETSIZE_MAX is no limit.
struct FrameSize {
  std::optional<int> width{}, height{}, maxWidth{}, maxHeight{};
};
[[nodiscard]] std::unique_ptr<QWidget> frameAround(std::unique_ptr<QWidget> content,
                                                   const FrameSize& size, Qt::Alignment alignment);

// A rectangle with continuous corners, filled.
[[nodiscard]] std::unique_ptr<QWidget> backgroundBehind(std::unique_ptr<QWidget> content,
                                                        double cornerRadius, const QColor& fill);

// Content that is out of date from the moment an intent runs; it dims meanwhile.
class InvalidatableBox : public QWidget {
 public:
  explicit InvalidatableBox(std::unique_ptr<QWidget> content);
  void setOutdated(bool outdated);
};

// Gives the content to the box, which it fills in a direction in which it takes all the room there
// is; in the others it stands at the side of `alignment`.
void fillWith(QWidget& box, std::unique_ptr<QWidget> content, Qt::Alignment alignment);
// The same for what is already in a layout.
void alignUnlessExpanding(QLayoutItem& item, Qt::Alignment alignment);

}  // namespace brevant
