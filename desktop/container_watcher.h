// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>

namespace brevant {

// Tells that another program has changed what is shown: the database or its journal, the settings,
// the registry of Live Activities or the user's icons, whether they were written in place, replaced
// or made only now.
//
// Only names, sizes and times are looked at; no file is ever opened. Events that come together are
// told once, and only when something is really different, so reading the database, which can make
// and remove files beside it, does not look like a change.
class ContainerWatcher : public QObject {
  Q_OBJECT
 public:
  // Events within `settle` are told as one.
  ContainerWatcher(const QString& container, std::chrono::milliseconds settle,
                   QObject* parent = nullptr);

  // What is on disk now is about to be read: it is no news any more.
  void markSeen();

 Q_SIGNALS:
  void changed();

 private:
  void look();
  void watchAgain();
  [[nodiscard]] QByteArray state() const;

  QString container_;
  QFileSystemWatcher watcher_;
  QTimer settle_;
  QByteArray seen_;
};

}  // namespace brevant
