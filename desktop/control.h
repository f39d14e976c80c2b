// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <memory>

namespace brevant {

// A button or a link of a view tree: its label is the one child that fills it. It looks pressed
// while it is and off while it is disabled, shows a ring when the keyboard reaches it, and is named
// for a screen reader.
//
// Its object name says what it does to which activity, and so is the same in the next card.
//
// The host finds the controls of a card with findChildren<Control*>() and tells each how its
// intent fares. A busy control ignores further clicks, and what its window shows that may be
// outdated by it dims; a failed one shows so until told otherwise.
class Control : public QAbstractButton {
  Q_OBJECT
 public:
  enum class State { kReady, kBusy, kFailed };

  explicit Control(std::unique_ptr<QWidget> label, QWidget* parent = nullptr);

  [[nodiscard]] State state() const { return state_; }
  void setState(State state);

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent*) override {}

 private:
  class Ring;

  void updateLook();

  QWidget* label_;
  Ring* ring_;
  State state_ = State::kReady;
  bool reachedByKeyboard_ = false;
};

}  // namespace brevant
