// SPDX-License-Identifier: MIT
#include "desktop/text_view.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

QSize roundedUp(QSizeF size) {
  return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

Qt::Alignment side(TextAlignment alignment, Qt::LayoutDirection direction) {
  if (alignment == TextAlignment::kCenter) return Qt::AlignHCenter;
  const bool atLeft = (alignment == TextAlignment::kLeading) == (direction == Qt::LeftToRight);
  return atLeft ? Qt::AlignLeft : Qt::AlignRight;
}

}  // namespace

TextView::TextView(const QString& text, const TextLook& look, QWidget* parent)
    : QWidget(parent), text_(text), look_(look), sizeHint_(measured(text)) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(look.style.lineLimit != 1);
  setSizePolicy(policy);
}

void TextView::setText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  set_.reset();
  const QSize hint = measured(text);
  if (hint != sizeHint_) {
    sizeHint_ = hint;
    updateGeometry();
  }
  update();
}

QSize TextView::measured(const QString& text) const {
  return roundedUp(brevant::setText(text, look_.style, kAnyWidth, look_.style.lineLimit).size());
}

QSize TextView::sizeHint() const {
  return sizeHint_;
}

QSize TextView::minimumSizeHint() const {
  const QFontMetricsF metrics(look_.style.font);
  const QSizeF smallest(metrics.horizontalAdvance(u'…'), metrics.height());
  return roundedUp(smallest * look_.style.minimumScaleFactor).boundedTo(sizeHint_);
}

int TextView::heightForWidth(int width) const {
  if (width >= sizeHint_.width()) return sizeHint_.height();
  return roundedUp(brevant::setText(text_, look_.style, width, look_.style.lineLimit).size())
      .height();
}

void TextView::paintEvent(QPaintEvent*) {
  if (!set_ || setFor_ != size()) {
    set_ = fitText(text_, look_.style, size());
    setFor_ = size();
  }
  QPainter painter(this);
  painter.setPen(look_.color);
  set_->draw(painter, rect(), side(look_.alignment, layoutDirection()));
}

}  // namespace brevant
