// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <utility>

namespace brevant {

// A closed presentation of the island. It can be reached with the keyboard, and then shows a ring;
// the mouse passes through to the window, which tells a click from a drag.
class Pill : public QWidget {
 public:
  // `spoken`: what a screen reader says of it, asked whenever one comes to it.
  Pill(std::unique_ptr<QWidget> surface, std::function<QString()> spoken);

  [[nodiscard]] QString spokenText() const { return spoken_(); }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* ring_;
  std::function<QString()> spoken_;
};

}  // namespace brevant
