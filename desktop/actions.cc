// SPDX-License-Identifier: MIT
#include "desktop/actions.h"

#include <utility>

namespace brevant {
Actions::Actions(BrevantClient& client, QObject* parent) : QObject(parent), client_(client) {}

bool Actions::run(const QStringList& arguments, Done done) {
  if (state_ != State::kIdle) return false;
  state_ = State::kRunning;
  client_.perform(arguments, this, [this, done = std::move(done)](const Answer& answer) {
    state_ = State::kSettling;
    done(answer.error);
    Q_EMIT ended();
  });
  return true;
}

void Actions::settle() {
  if (state_ == State::kSettling) state_ = State::kIdle;
}

}  // namespace brevant
