// SPDX-License-Identifier: MIT
#include "desktop/control.h"

#include <QFocusEvent>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QPainter>

#include "desktop/boxes.h"
#include "desktop/rounded_shape.h"

namespace brevant {
namespace {

constexpr double kPressedOpacity = 0.5, kBusyOpacity = 0.35, kDisabledOpacity = 0.3;
constexpr QColor kFocusColor(10, 132, 255), kFailureColor(255, 69, 58);
constexpr double kRingWidth = 2;

void setOpacity(QWidget& widget, double opacity) {
  if (opacity >= 1) return widget.setGraphicsEffect(nullptr);
  auto* effect = new QGraphicsOpacityEffect;
  effect->setOpacity(opacity);
  widget.setGraphicsEffect(effect);
}

}  // namespace

// Lies over the label, since a widget paints below its children.
class Control::Ring : public QWidget {
 public:
  explicit Ring(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
  }

  void show(const QColor& color) {
    color_ = color;
    raise();
    QWidget::show();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = kRingWidth / 2;
    const QRectF rect = QRectF(this->rect()).adjusted(inset, inset, -inset, -inset);
    painter.strokePath(roundedShape(rect, rect.height() / 2), QPen(color_, kRingWidth));
  }

 private:
  QColor color_;
};

Control::Control(std::unique_ptr<QWidget> label, QWidget* parent)
    : QAbstractButton(parent), label_(label.get()), ring_(new Ring(this)) {
  fillWith(*this, std::move(label), {});
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
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
  const double enabled = isDown() ? kPressedOpacity : resting;
  setOpacity(*label_, isEnabled() ? enabled : kDisabledOpacity);
  if (state_ == State::kFailed) {
    ring_->show(kFailureColor);
  } else if (reachedByKeyboard_) {
    ring_->show(kFocusColor);
  } else {
    ring_->hide();
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
