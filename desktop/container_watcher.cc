// SPDX-License-Identifier: MIT
#include "desktop/container_watcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// The database's shared-memory file is left out: every reader makes it anew.
constexpr QLatin1StringView kFiles[] = {
    "database.sqlite"_L1, "database.sqlite-journal"_L1, "database.sqlite-wal"_L1,
    "Library/Preferences/group.brevant.plist"_L1, "custom_images"_L1};
constexpr QLatin1StringView kFolders[] = {""_L1, "Library"_L1, "Library/Preferences"_L1};
constexpr QLatin1StringView kRegistry = "LiveActivities"_L1;
constexpr QDir::Filters kEntries = QDir::Files | QDir::Hidden;

// What tells one version of a file from the next. A journal that is empty says as little as none.
QByteArray stampOf(const QString& path) {
  struct stat status = {};
  if (::stat(QFile::encodeName(path).constData(), &status) != 0 || status.st_size == 0) return "-";
  return QByteArray::number(static_cast<qulonglong>(status.st_ino)) + ' ' +
         QByteArray::number(static_cast<qlonglong>(status.st_size)) + ' ' +
         QByteArray::number(static_cast<qlonglong>(status.st_mtim.tv_sec)) + '.' +
         QByteArray::number(static_cast<qlonglong>(status.st_mtim.tv_nsec));
}

// A container that does not exist yet shows first in the nearest folder that does.
QString nearestFolderAbove(const QString& path) {
  QString folder = QFileInfo(path).path();
  while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).path())
    folder = QFileInfo(folder).path();
  return folder;
}

}  // namespace

ContainerWatcher::ContainerWatcher(const QString& container, std::chrono::milliseconds settle,
                                   QObject* parent)
    : QObject(parent), container_(QDir::cleanPath(container)) {
  settle_.setSingleShot(true);
  settle_.setInterval(settle);
  const auto wait = [this] {
    if (!settle_.isActive()) settle_.start();
  };
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, wait);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, wait);
  connect(&settle_, &QTimer::timeout, this, &ContainerWatcher::look);
  watchAgain();
  markSeen();
}

void ContainerWatcher::markSeen() {
  seen_ = state();
}

// The watches come first: what changes after them is told by them.
void ContainerWatcher::look() {
  watchAgain();
  const QByteArray now = state();
  if (now == seen_) return;
  seen_ = now;
  Q_EMIT changed();
}

// A watch follows the file, not its name, so after a replacement it looks at the wrong one. All are
// set anew; they are few. The folder above shows when the container itself is replaced.
void ContainerWatcher::watchAgain() {
  const QStringList old = watcher_.files() + watcher_.directories();
  if (!old.isEmpty()) watcher_.removePaths(old);
  QStringList paths{nearestFolderAbove(container_)};
  const QDir container(container_);
  for (const auto name : kFolders) paths << QDir::cleanPath(container.filePath(name));
  for (const auto name : kFiles) paths << container.filePath(name);
  const QDir registry(container.filePath(kRegistry));
  paths << registry.path();
  for (const QString& entry : registry.entryList(kEntries)) paths << registry.filePath(entry);
  for (const QString& path : paths)
    if (QFileInfo::exists(path)) watcher_.addPath(path);
}

QByteArray ContainerWatcher::state() const {
  const QDir container(container_);
  QByteArray state;
  for (const auto name : kFiles) state += stampOf(container.filePath(name)) + '\n';
  const QDir registry(container.filePath(kRegistry));
  for (const QString& entry : registry.entryList(kEntries, QDir::Name))
    state += entry.toUtf8() + ' ' + stampOf(registry.filePath(entry)) + '\n';
  return state;
}

}  // namespace brevant
