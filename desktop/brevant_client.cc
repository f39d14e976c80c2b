// SPDX-License-Identifier: MIT
#include "desktop/brevant_client.h"

#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <optional>
#include <utility>

#include "desktop/answer_json.h"
#include "desktop/answer_limits.h"
#include "desktop/programs.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

using Outcome = Answer::Outcome;

enum class Reply { kJson, kNothing };

// Without the program's name, which people have not run.
QString lastLine(const QByteArray& text) {
  const QString trimmed = QString::fromUtf8(text.trimmed());
  const QString line = trimmed.mid(trimmed.lastIndexOf(u'\n') + 1);
  return line.mid(line.startsWith("brevant: "_L1) ? 9 : 0).left(kLongestError);
}

// One process, from its start to its answer; then it deletes itself.
class Run : public QObject {
 public:
  Run(Reply reply, QObject* receiver, BrevantClient::Done done, QObject* parent)
      : QObject(parent), reply_(reply), receiver_(receiver), done_(std::move(done)) {
    process_.setStandardInputFile(QProcess::nullDevice());
    patience_.setSingleShot(true);
    connect(&process_, &QProcess::readyReadStandardOutput, this, &Run::readOutput);
    connect(&process_, &QProcess::readyReadStandardError, this, &Run::readErrors);
    connect(&process_, &QProcess::finished, this, &Run::finish);
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
      if (error == QProcess::FailedToStart) failToStart();
    });
    connect(&patience_, &QTimer::timeout, this,
            [this] { giveUp(translate("brevant did not answer in time")); });
  }

  ~Run() override {
    process_.disconnect();
    if (process_.state() == QProcess::NotRunning) return;
    process_.kill();
    process_.waitForFinished();
  }

  void start(const QString& program, const QStringList& arguments,
             std::chrono::milliseconds patience) {
    process_.setProgram(program);
    process_.setArguments(arguments);
    if (!canRun(program)) return failToStart();
    patience_.start(patience);
    process_.start(QIODevice::ReadOnly);
  }

 private:
  void readOutput() {
    output_ += process_.readAllStandardOutput();
    if (output_.size() > kMostOutput) giveUp(translate("brevant answered without end"));
  }

  void readErrors() {
    const QByteArray more = process_.readAllStandardError();
    errors_ = (errors_ + more).right(kMostErrors);
    errorBytes_ += more.size();
    if (errorBytes_ > kMostOutput) giveUp(translate("brevant answered without end"));
  }

  void giveUp(const QString& why) {
    if (reason_.isEmpty()) reason_ = why;
    output_.clear();
    process_.kill();
  }

  // Said from the event loop, because this may come from within start().
  void failToStart() {
    const QString why = translate("%1 could not be started").arg(process_.program());
    QMetaObject::invokeMethod(
        this,
        [this, why] {
          tell({Outcome::kFailed, {}, why});
        },
        Qt::QueuedConnection);
  }

  void finish(int exitCode, QProcess::ExitStatus status) {
    readErrors();
    if (!reason_.isEmpty()) return tell({Outcome::kFailed, {}, reason_});
    if (status == QProcess::CrashExit) return tell(failed(translate("brevant crashed")));
    if (exitCode == 1) return tell(notDone());
    if (exitCode != 0) return tell(failed(translate("brevant ended with code %1").arg(exitCode)));
    if (reply_ == Reply::kNothing) return tell({Outcome::kDone, {}, {}});
    output_ += process_.readAllStandardOutput();
    const std::optional<QJsonValue> value = jsonFromAnswer(output_);
    if (!value) return tell(failed(translate("brevant answered something that cannot be used")));
    tell({Outcome::kDone, *value, {}});
  }

  [[nodiscard]] Answer failed(const QString& what) const {
    const QString line = lastLine(errors_);
    return {Outcome::kFailed, {}, line.isEmpty() ? what : what + u": "_s + line};
  }

  [[nodiscard]] Answer notDone() const {
    const QString line = lastLine(errors_);
    return {Outcome::kNotDone, {}, line.isEmpty() ? translate("It was not done") : line};
  }

  void tell(const Answer& answer) {
    patience_.stop();
    deleteLater();
    // Whoever is told may delete the client, and this with it.
    const BrevantClient::Done done = std::move(done_);
    if (receiver_) done(answer);
  }

  QProcess process_;
  QTimer patience_;
  QByteArray output_, errors_;
  qsizetype errorBytes_ = 0;
  QString reason_;  // why it was killed
  Reply reply_;
  QPointer<QObject> receiver_;
  BrevantClient::Done done_;
};

}  // namespace

BrevantClient::BrevantClient(Options options, QObject* parent)
    : QObject(parent), options_(std::move(options)) {}

void BrevantClient::ask(const QStringList& arguments, QObject* receiver, Done done) {
  auto* run = new Run(Reply::kJson, receiver, std::move(done), this);
  run->start(options_.program, globalOptions() + QStringList{u"--json"_s} + arguments,
             options_.patience);
}

void BrevantClient::perform(const QStringList& arguments, QObject* receiver, Done done) {
  auto* run = new Run(Reply::kNothing, receiver, std::move(done), this);
  run->start(options_.program, globalOptions() + arguments, options_.patience);
}

QStringList BrevantClient::globalOptions() const {
  const QString scheme = options_.colorScheme == ColorScheme::kDark ? u"dark"_s : u"light"_s;
  return options_.globalOptions +
         QStringList{u"--container"_s, options_.container, u"--color-scheme"_s, scheme};
}

}  // namespace brevant
