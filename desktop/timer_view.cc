#include "desktop/timer_view.h"

#include "desktop/ticker.h"

namespace brevant {
namespace {

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

double TimerView::secondsUntilNextTick() const {
  return brevant::secondsUntilNextTick(date_, context_.now());
}

void TimerView::showEvent(QShowEvent*) {
  if (style_ == TimerStyle::kTime || ticker_) return;
  advance();
  ticker_ = &Ticker::of(*this);
  ticker_->add(this);
}

void TimerView::hideEvent(QHideEvent*) {
  if (ticker_) ticker_->remove(this);
  ticker_ = nullptr;
}

}  // namespace brevant
