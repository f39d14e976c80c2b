// SPDX-License-Identifier: MIT
#include "desktop/programs.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isProgram(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() && file.isExecutable();
}

}  // namespace

QString findBrevant() {
  if (qEnvironmentVariableIsSet("BREVANT")) return qEnvironmentVariable("BREVANT");
  const QString beside = QCoreApplication::applicationDirPath() + u"/brevant"_s;
  if (isProgram(beside)) return beside;
  const QString onPath = QStandardPaths::findExecutable(u"brevant"_s);
  return onPath.isEmpty() ? u"brevant"_s : onPath;
}

bool canRun(const QString& program) {
  if (program.contains(u'/')) return isProgram(program);
  return !QStandardPaths::findExecutable(program).isEmpty();
}

}  // namespace brevant
