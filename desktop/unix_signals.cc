// SPDX-License-Identifier: MIT
#include "desktop/unix_signals.h"

#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace brevant {
namespace {

// A signal handler can reach nothing but a global, and may do little more than write.
int wakeUp = -1;

void handleSignal(int) {
  static_cast<void>(::eventfd_write(wakeUp, 1));
}

int makeWakeUp() {
  wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  return wakeUp;
}

}  // namespace

UnixSignals::UnixSignals(QObject* parent)
    : QObject(parent), notifier_(makeWakeUp(), QSocketNotifier::Read) {
  connect(&notifier_, &QSocketNotifier::activated, this, [this] {
    eventfd_t count = 0;
    ::eventfd_read(wakeUp, &count);
    Q_EMIT endAsked();
  });
  struct sigaction action = {};
  action.sa_handler = handleSignal;
  action.sa_flags = SA_RESTART;
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(number, &action, nullptr);
}

}  // namespace brevant
