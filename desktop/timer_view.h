// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

#include "desktop/drawing_context.h"
#include "desktop/text_view.h"
#include "desktop/timer_text.h"

namespace brevant {

class Ticker;

// A text that shows a date and advances by itself while it is visible. What it reads is always
// computed from the date, so a suspended machine or a changed clock is right at the next tick.
class TimerView : public TextView {
 public:
  TimerView(TimerStyle style, double date, const TextLook& look, const DrawingContext& context);
  ~TimerView() override;

  void advance();
  [[nodiscard]] double secondsUntilNextTick() const;
  // "1 hour 5 minutes", for a screen reader.
  [[nodiscard]] QString spokenText() const;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  TimerStyle style_;
  double date_;
  DrawingContext context_;
  QPointer<Ticker> ticker_;  // while it is visible
};

}  // namespace brevant
