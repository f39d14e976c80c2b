// SPDX-License-Identifier: MIT
#include "desktop/reminders_child.h"

#include <chrono>
#include <csignal>
#include <sys/prctl.h>

#include "desktop/programs.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

// One that lived this long did its work, whatever ended it.
constexpr auto kHealthy = 1min;
constexpr auto kTimeToEnd = 1s;

}  // namespace

RemindersChild::RemindersChild(const BrevantClient::Options& options, RetryPauses pauses,
                               QObject* parent)
    : QObject(parent), pauses_(pauses) {
  process_.setProgram(options.program);
  process_.setArguments(options.globalOptions + QStringList{u"--container"_s, options.container,
                                                            u"reminders"_s, u"deliver"_s,
                                                            u"--watch"_s});
  process_.setStandardInputFile(QProcess::nullDevice());
  process_.setStandardOutputFile(QProcess::nullDevice());
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
  retry_.setSingleShot(true);
  connect(&retry_, &QTimer::timeout, this, &RemindersChild::start);
  connect(&process_, &QProcess::finished, this, &RemindersChild::takeEnd);
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) takeEnd();
  });
  start();
}

RemindersChild::~RemindersChild() {
  process_.disconnect();
  if (process_.state() == QProcess::NotRunning) return;
  process_.terminate();
  if (process_.waitForFinished(std::chrono::milliseconds(kTimeToEnd).count())) return;
  process_.kill();
  process_.waitForFinished();
}

void RemindersChild::start() {
  alive_.start();
  if (!canRun(process_.program())) return takeEnd();
  process_.start(QIODevice::ReadOnly);
}

void RemindersChild::takeEnd() {
  if (std::chrono::milliseconds(alive_.elapsed()) >= kHealthy) pauses_.reset();
  retry_.start(pauses_.next());
}

}  // namespace brevant
