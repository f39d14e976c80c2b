// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>

#include "desktop/container_model.h"

namespace brevant {

// Plays `brevant` as a script in a folder of its own: answers every command from a file, notes what
// it was called with, and misbehaves as it is told.
class FakeBrevant {
 public:
  FakeBrevant();

  [[nodiscard]] QString program() const { return folder_.filePath(QStringLiteral("brevant")); }
  [[nodiscard]] QString container() const { return folder_.filePath(QStringLiteral("container")); }
  // Everything quick, so that tests are.
  [[nodiscard]] ContainerModel::Options options() const;

  // What a command such as "timeline" or "live show" prints.
  void answer(const QString& command, const QByteArray& json);
  // Shell commands that every call runs first. Empty: it behaves.
  void misbehave(const QByteArray& commands);
  // Runs the real `brevant-desktop` with this one, without a display.
  struct HostRun {
    int exitCode;
    QString error;
  };
  [[nodiscard]] HostRun runHost(const QStringList& arguments) const;
  // How often a command was called, with its arguments.
  [[nodiscard]] QStringList calls(const QString& command) const;

 private:
  QTemporaryDir folder_;
};

// Runs the event loop until it holds; false when it does not within a generous time.
[[nodiscard]] bool waitUntil(const std::function<bool()>& holds);
// Runs the event loop for a while in which something must not happen.
void letPass(int milliseconds);

// Whether a label that people can see has that text.
[[nodiscard]] bool says(const QWidget& window, const QString& text);
// Every window of a type.
template <typename Window>
[[nodiscard]] QList<Window*> windowsOf() {
  QList<Window*> found;
  for (QWidget* each : QApplication::topLevelWidgets())
    if (auto* window = qobject_cast<Window*>(each)) found << window;
  return found;
}

void writeFile(const QString& path, const QByteArray& content);

// An answer to `timeline` with one entry, whose medium widget has a pause button.
[[nodiscard]] QByteArray timelineOf(const QString& name);
// An answer to `live show`, with a button in the expanded island and on the lock screen.
[[nodiscard]] QByteArray presentationOf(const QString& id, const QString& name);

}  // namespace brevant
