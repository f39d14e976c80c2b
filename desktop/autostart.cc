// SPDX-License-Identifier: MIT
#include "desktop/autostart.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

QString autostartFile() {
  const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return config + u"/autostart/org.brevant.Desktop.desktop"_s;
}

// As the value of Exec wants a word: its quotes and signs escaped for the command line, then the
// backslashes once more for the file, and no letter after a percent sign filled in.
QString quotedForExec(QString path) {
  for (const char16_t sign : {u'\\', u'"', u'`', u'$'})
    path.replace(QChar(sign), u'\\' + QString(QChar(sign)));
  return u'"' + path.replace(u'\\', u"\\\\"_s).replace(u'%', u"%%"_s) + u'"';
}

QByteArray entry() {
  // Absolute, since a session's path may lack the folder that this was started from.
  return u"[Desktop Entry]\nType=Application\nName=Brevant\nIcon=brevant\nExec=%1\n"_s
      .arg(quotedForExec(QCoreApplication::applicationFilePath()))
      .toUtf8();
}

}  // namespace

// A desktop that lets people switch an entry off may leave the file and say so in it.
bool startsAtLogin() {
  QFile file(autostartFile());
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return false;
  for (const QByteArray& line : file.readAll().split('\n'))
    if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false") return false;
  return true;
}

bool setStartsAtLogin(bool wanted) {
  const QString name = autostartFile();
  if (!wanted) return !QFileInfo::exists(name) || QFile::remove(name);
  QDir().mkpath(QFileInfo(name).path());
  QSaveFile file(name);
  return file.open(QIODevice::WriteOnly) && file.write(entry()) >= 0 && file.commit();
}

}  // namespace brevant
