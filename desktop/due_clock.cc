// SPDX-License-Identifier: MIT
#include "desktop/due_clock.h"

#include <QDateTime>
#include <algorithm>
#include <utility>

namespace brevant {
namespace {

constexpr double kLongestAge = 15 * 60;
constexpr double kLookEvery = 60;

}  // namespace

DueClock::DueClock(std::function<double()> now, QObject* parent)
    : QObject(parent), now_(std::move(now)) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &DueClock::look);
  markLoaded();
  look();
}

void DueClock::markLoaded() {
  loadedAt_ = now_();
  loadedOn_ = today();
}

void DueClock::look() {
  const double now = now_();
  const double age = now - loadedAt_;
  if (today() != loadedOn_ || age >= kLongestAge || age < 0) {
    markLoaded();
    Q_EMIT due();
  }
  const auto midnight = static_cast<double>(today().addDays(1).startOfDay().toSecsSinceEpoch());
  const double wait = std::clamp(midnight - now, 0.1, kLookEvery);
  timer_.start(static_cast<int>(wait * 1000));
}

QDate DueClock::today() const {
  return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(now_() * 1000)).date();
}

}  // namespace brevant
