// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>
#include <optional>

#include "desktop/typesetting.h"

namespace brevant {

enum class TextAlignment { kLeading, kCenter, kTrailing };

// How a text of a view tree looks.
struct TextLook {
  TextStyle style;
  TextAlignment alignment = TextAlignment::kLeading;
  QColor color;
};

// A text of a view tree. It wants to stand on one line, wraps where it may, shrinks where it may,
// and ends in an ellipsis where all of that is not enough.
class TextView : public QWidget {
 public:
  TextView(const QString& text, const TextLook& look, QWidget* parent = nullptr);

  [[nodiscard]] const QString& text() const { return text_; }
  // Draws anew only what has become different.
  void setText(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return look_.style.lineLimit != 1; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QSize measured(const QString& text) const;

  QString text_;
  TextLook look_;
  QSize sizeHint_;
  std::optional<SetText> set_;  // for the present size
  QSize setFor_;
};

}  // namespace brevant
