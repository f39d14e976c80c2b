// SPDX-License-Identifier: MIT
#include "desktop/feed.h"

#include <utility>

namespace brevant {

Feed::Feed(Fetch fetch, Check check, RetryPauses pauses, QObject* parent)
    : QObject(parent), fetch_(std::move(fetch)), check_(std::move(check)), pauses_(pauses) {
  retry_.setSingleShot(true);
  connect(&retry_, &QTimer::timeout, this, &Feed::reload);
}

void Feed::reload() {
  if (loading_) {
    again_ = true;
    return;
  }
  loading_ = true;
  retry_.stop();
  fetch_(this, [this](const Answer& answer) { take(answer); });
}

void Feed::take(const Answer& answer) {
  loading_ = false;
  trouble_ = answer.outcome == Answer::Outcome::kDone ? check_(answer.value) : answer.error;
  if (trouble_.isEmpty() && answer.outcome == Answer::Outcome::kDone) {
    lastGood_ = answer.value;
    pauses_.reset();
  } else {
    retry_.start(pauses_.next());
  }
  if (std::exchange(again_, false)) reload();
  Q_EMIT loaded();
}

}  // namespace brevant
