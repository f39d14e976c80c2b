// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace brevant {

// Turns the signals that ask a process to end into a Qt signal, told from the event loop, where
// everything can be closed in order. One per process.
class UnixSignals : public QObject {
  Q_OBJECT
 public:
  explicit UnixSignals(QObject* parent = nullptr);

 Q_SIGNALS:
  void endAsked();

 private:
  QSocketNotifier notifier_;
};

}  // namespace brevant
