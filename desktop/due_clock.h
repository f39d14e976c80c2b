// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QObject>
#include <QTimer>
#include <functional>

namespace brevant {

// Says when a timeline is due although nothing has changed: at the day's change, and a quarter of
// an hour after it was last loaded, as often as a phone asks for one that ends at once.
//
// Compares times of day again and again instead of waiting once, so it is also right after the
// machine has slept or its clock was set.
class DueClock : public QObject {
  Q_OBJECT
 public:
  // `now`: seconds since 1970.
  explicit DueClock(std::function<double()> now, QObject* parent = nullptr);

  void markLoaded();
  // Looks at the time now, and by itself about every minute.
  void look();

 Q_SIGNALS:
  void due();

 private:
  [[nodiscard]] QDate today() const;

  std::function<double()> now_;
  QTimer timer_;
  double loadedAt_;
  QDate loadedOn_;
};

}  // namespace brevant
