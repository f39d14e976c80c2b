// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

#include "desktop/brevant_client.h"

namespace brevant {

// The changes that people ask for, one at a time: while one is under way, and until what it changed
// has been read again, further ones are ignored. So a double click does one thing.
class Actions : public QObject {
  Q_OBJECT
 public:
  // `failure` says in a line why it was not done; empty when it was.
  using Done = std::function<void(const QString& failure)>;

  explicit Actions(BrevantClient& client, QObject* parent = nullptr);

  // Runs `brevant` with the arguments. False when it is ignored; `done` is not called then.
  bool run(const QStringList& arguments, Done done);
  // What the last action changed has been read.
  void settle();
  [[nodiscard]] bool isRunning() const { return state_ == State::kRunning; }

 Q_SIGNALS:
  // The action has ended, well or badly: it is time to read.
  void ended();

 private:
  enum class State { kIdle, kRunning, kSettling };

  BrevantClient& client_;
  State state_ = State::kIdle;
};

}  // namespace brevant
