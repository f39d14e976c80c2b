// SPDX-License-Identifier: MIT
#include "desktop/control.h"

#include <QFocusEvent>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QPainter>
#include <optional>

#include "desktop/boxes.h"
#include "desktop/rounded_shape.h"

namespace brevant {
namespace {

constexpr double kBusyOpacity = 0.35, kDisabledOpacity = 0.3;
constexpr QColor kFocusColor(10, 132, 255), kFailureColor(255, 69, 58);
// Darker where it is light and lighter where it is dark, and then darker in any case.
constexpr QColor kHoverShade(128, 128, 128, 56), kPressedShade(0, 0, 0, 90);
constexpr double kRingWidth = 2;

void setOpacity(QWidget& widget, double opacity) {
  if (opacity >= 1) return widget.setGraphicsEffect(nullptr);
  auto* effect = new QGraphicsOpacityEffect;
  effect->setOpacity(opacity);
  widget.setGraphicsEffect(effect);
}

}  // namespace

// Lies over the label, since a widget paints below its children: a shade while it is pointed at or
// pressed, and a ring.
class Control::Ring : public QWidget {
 public:
  explicit Ring(QAbstractButton* control) : QWidget(control), control_(*control) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

  void setColor(std::optional<QColor> color) {
    color_ = color;
    raise();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF all(rect());
    const bool isPressed = control_.isDown();
    if (control_.isEnabled() && (isPressed || control_.underMouse()))
      painter.fillPath(roundedShape(all, all.height() / 2),
                       isPressed ? kPressedShade : kHoverShade);
    if (!color_) return;
    const double inset = kRingWidth / 2;
    const QRectF ring = all.adjusted(inset, inset, -inset, -inset);
    painter.strokePath(roundedShape(ring, ring.height() / 2), QPen(*color_, kRingWidth));
  }

 private:
  const QAbstractButton& control_;
  std::optional<QColor> color_;
};

Control::Control(std::unique_ptr<QWidget> label, QWidget* parent)
    : QAbstractButton(parent), label_(label.get()), ring_(new Ring(this)) {
  fillWith(*this, std::move(label), {});
  ring_->raise();
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  connect(this, &Control::pressed, this, &Control::updateLook);
  connect(this, &Control::released, this, &Control::updateLook);
}

void Control::setState(State state) {
  state_ = state;
  updateLook();
  for (auto* box : window()->findChildren<QWidget*>()) {
    if (auto* content = dynamic_cast<InvalidatableBox*>(box)) {
      content->setOutdated(state == State::kBusy);
    }
  }
}

void Control::updateLook() {
  const double resting = state_ == State::kBusy ? kBusyOpacity : 1;
  setOpacity(*label_, isEnabled() ? resting : kDisabledOpacity);
  if (state_ == State::kFailed) {
    ring_->setColor(kFailureColor);
  } else if (reachedByKeyboard_) {
    ring_->setColor(kFocusColor);
  } else {
    ring_->setColor(std::nullopt);
  }
}

bool Control::hitButton(const QPoint& position) const {
  return state_ != State::kBusy && QAbstractButton::hitButton(position);
}

void Control::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (state_ == State::kBusy) return event->ignore();
  if (isEnter) return animateClick();
  QAbstractButton::keyPressEvent(event);
}

void Control::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  reachedByKeyboard_ = event->reason() != Qt::MouseFocusReason;
  updateLook();
}

void Control::focusOutEvent(QFocusEvent* event) {
  reachedByKeyboard_ = false;
  QAbstractButton::focusOutEvent(event);  // no longer down
  updateLook();
}

void Control::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() != QEvent::EnabledChange) return;
  setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
  updateLook();
}

void Control::resizeEvent(QResizeEvent*) {
  ring_->setGeometry(rect());
}

}  // namespace brevant
