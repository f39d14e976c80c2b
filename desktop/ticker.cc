// SPDX-License-Identifier: MIT
#include "desktop/ticker.h"

#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/timer_view.h"

namespace brevant {

Ticker& Ticker::of(QWidget& widget) {
  QWidget* window = widget.window();
  for (QObject* child : window->children()) {
    if (auto* ticker = dynamic_cast<Ticker*>(child)) return *ticker;
  }
  return *new Ticker(window);
}

Ticker::Ticker(QWidget* window) : QObject(window) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &Ticker::tick);
}

void Ticker::add(TimerView* view) {
  views_.push_back(view);
  wait();
}

void Ticker::remove(TimerView* view) {
  std::erase(views_, view);
  if (views_.empty()) timer_.stop();
}

void Ticker::tick() {
  for (TimerView* view : views_) view->advance();
  wait();
}

void Ticker::wait() {
  double seconds = 1;
  for (const TimerView* view : views_) seconds = std::min(seconds, view->secondsUntilNextTick());
  // A little late rather than early: early would show the old second once more.
  timer_.start(static_cast<int>(std::ceil(seconds * 1000)) + 1);
}

}  // namespace brevant
