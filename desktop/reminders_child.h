// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QTimer>

#include "desktop/brevant_client.h"
#include "desktop/retry_pauses.h"

namespace brevant {

// Keeps one `brevant reminders deliver --watch` alive, so that reminders come while the host runs.
// When it ends it is started again after a pause: also when it ended because another one was
// already delivering, since that one may end some day. It is ended with this object, and by the
// system should the host die.
class RemindersChild : public QObject {
  Q_OBJECT
 public:
  RemindersChild(const BrevantClient::Options& options, RetryPauses pauses,
                 QObject* parent = nullptr);
  ~RemindersChild() override;

 private:
  void start();
  void takeEnd();

  QProcess process_;
  QTimer retry_;
  RetryPauses pauses_;
  QElapsedTimer alive_;
};

}  // namespace brevant
