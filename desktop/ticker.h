// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

namespace brevant {

class TimerView;

// Wakes the timers of one window when the next of them has something new to show. One timer of the
// system serves them all, and none runs while nothing is visible.
//
// Lives as a child of the window, made when its first timer is shown.
class Ticker : public QObject {
 public:
  // The one of the window that `widget` is in.
  [[nodiscard]] static Ticker& of(QWidget& widget);

  void add(TimerView* view);
  void remove(TimerView* view);

 private:
  explicit Ticker(QWidget* window);
  void tick();
  void wait();

  QTimer timer_;
  std::vector<TimerView*> views_;
};

}  // namespace brevant
