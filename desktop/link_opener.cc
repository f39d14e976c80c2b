// SPDX-License-Identifier: MIT
#include "desktop/link_opener.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>
#include <memory>
#include <utility>

#include "desktop/answer_limits.h"
#include "desktop/programs.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kHelper = "xdg-open"_L1;

QString nothingOpensIt() {
  return translate("Nothing here opens this link");
}

// Nothing where the handler of our own links failed: it has told people itself.
QString reasonIn(const QString& errors) {
  for (const QString& line : errors.split(u'\n'))
    if (line.startsWith("brevant-desktop: "_L1)) return {};
  return nothingOpensIt();
}

}  // namespace

// Not QDesktopServices, which only knows whether the helper could be started.
void openLink(const QString& destination, QObject* receiver,
              std::function<void(const QString& failure)> done) {
  if (!canRun(kHelper)) {
    const auto tell = [done = std::move(done)] { done(nothingOpensIt()); };
    QMetaObject::invokeMethod(receiver, tell, Qt::QueuedConnection);
    return;
  }
  auto* helper = new QProcess(QCoreApplication::instance());
  helper->setStandardOutputFile(QProcess::nullDevice());
  // What it started may go on talking for hours.
  const auto errors = std::make_shared<QByteArray>();
  QObject::connect(helper, &QProcess::readyReadStandardError, helper, [=] {
    *errors = (*errors + helper->readAllStandardError()).right(kMostErrors);
  });
  QObject::connect(helper, &QProcess::finished, receiver, [=, done = std::move(done)] {
    const bool worked = helper->exitStatus() == QProcess::NormalExit && helper->exitCode() == 0;
    done(worked ? QString() : reasonIn(QString::fromUtf8(*errors)));
  });
  QObject::connect(helper, &QProcess::finished, helper, &QObject::deleteLater);
  helper->start(kHelper, {destination}, QIODevice::ReadOnly);
}

}  // namespace brevant
