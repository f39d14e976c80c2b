#include "desktop/link_opener.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>
#include <utility>

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// What the handler of our own links says, among what the helper says of its search for one.
QString reasonIn(const QString& errors) {
  for (const QString& line : errors.split(u'\n'))
    if (line.startsWith("brevant: "_L1)) return line;
  return translate("Nothing here opens this link");
}

}  // namespace

// Not QDesktopServices, which only knows whether the helper could be started.
void openLink(const QString& destination, QObject* receiver,
              std::function<void(const QString& failure)> done) {
  auto* helper = new QProcess(QCoreApplication::instance());
  helper->setStandardOutputFile(QProcess::nullDevice());
  const auto failedToStart = [helper] { return helper->error() == QProcess::FailedToStart; };
  const auto tell = [=, done = std::move(done)] {
    const bool worked =
        !failedToStart() && helper->exitStatus() == QProcess::NormalExit && helper->exitCode() == 0;
    done(worked ? QString() : reasonIn(QString::fromUtf8(helper->readAllStandardError())));
  };
  QObject::connect(helper, &QProcess::finished, receiver, tell);
  QObject::connect(helper, &QProcess::finished, helper, &QObject::deleteLater);
  QObject::connect(helper, &QProcess::errorOccurred, receiver, [=] {
    if (failedToStart()) tell();
  });
  QObject::connect(helper, &QProcess::errorOccurred, helper, [=] {
    if (failedToStart()) helper->deleteLater();
  });
  helper->start(u"xdg-open"_s, {destination}, QIODevice::ReadOnly);
}

}  // namespace brevant
