#include "desktop/control.h"

#include <QVBoxLayout>

namespace brevant {

Control::Control(std::unique_ptr<QWidget> label, QWidget* parent) : QAbstractButton(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label.release());
}

void Control::setState(State state) {
  state_ = state;
  update();
}

QSize Control::sizeHint() const {
  return layout()->sizeHint();
}

void Control::paintEvent(QPaintEvent*) {}

void Control::nextCheckState() {}

}  // namespace brevant
