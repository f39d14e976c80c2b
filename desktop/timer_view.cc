// SPDX-License-Identifier: MIT
#include "desktop/timer_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <cmath>

#include "desktop/spoken.h"
#include "desktop/ticker.h"

namespace brevant {
namespace {

// Reads the time in words at the moment it is asked; nothing is announced while it advances.
class TimerAccessible : public QAccessibleWidget {
 public:
  explicit TimerAccessible(TimerView* timer) : QAccessibleWidget(timer, QAccessible::StaticText) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    return static_cast<const TimerView*>(widget())->spokenText();
  }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* timer = dynamic_cast<TimerView*>(object);
  return timer ? new TimerAccessible(timer) : nullptr;
}

// Digits stand still in what counts.
TextLook lookOf(TimerStyle style, TextLook look) {
  if (style != TimerStyle::kTime) look.style.monospacedDigit = true;
  return look;
}

}  // namespace

TimerView::TimerView(TimerStyle style, double date, const TextLook& look,
                     const DrawingContext& context)
    : TextView(timerText(style, date, context.now(), context.locale), lookOf(style, look)),
      style_(style),
      date_(date),
      context_(context) {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(makeAccessible);
    return true;
  }();
  // As on the phone, a timer takes all the width there is: it keeps its place while it grows.
  if (style == TimerStyle::kTimer) {
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Expanding);
    setSizePolicy(policy);
  }
}

TimerView::~TimerView() {
  if (ticker_) ticker_->remove(this);
}

void TimerView::advance() {
  setText(timerText(style_, date_, context_.now(), context_.locale));
}

QString TimerView::spokenText() const {
  if (style_ == TimerStyle::kTime) return text();
  return spokenDuration(std::abs(context_.now() - date_));
}

double TimerView::secondsUntilNextTick() const {
  return brevant::secondsUntilNextTick(date_, context_.now());
}

void TimerView::showEvent(QShowEvent*) {
  if (style_ == TimerStyle::kTime || context_.isStill || ticker_) return;
  advance();
  ticker_ = &Ticker::of(*this);
  ticker_->add(this);
}

void TimerView::hideEvent(QHideEvent*) {
  if (ticker_) ticker_->remove(this);
  ticker_ = nullptr;
}

}  // namespace brevant
