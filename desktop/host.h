// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDialog>
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

#include "desktop/container_model.h"
#include "desktop/desk.h"
#include "desktop/options.h"
#include "desktop/preferences.h"
#include "desktop/reminders_child.h"
#include "desktop/scheme_watch.h"
#include "desktop/single_instance.h"
#include "desktop/start_window.h"

namespace brevant {

// Lives on the desktop: shows the log of one container, or offers to find or make one, and can
// change to another. Asks to be ended through a signal.
class Host : public QObject {
  Q_OBJECT
 public:
  explicit Host(const Options& options, QObject* parent = nullptr);

  // False when another host shows the container already; it has been asked to come to the front.
  [[nodiscard]] bool start();

 Q_SIGNALS:
  void endAsked();

 private:
  [[nodiscard]] bool claim(const QString& container);
  void show();
  void showDesk();
  void showStart();
  void askForFolder();
  void change(const QString& folder);
  void makeSample();
  void takeWord(const QByteArray& word);
  void tellFailure(const QString& why);
  [[nodiscard]] DrawingContext drawing() const;

  Options options_;
  Preferences preferences_;
  SchemeWatch scheme_;
  BrevantClient::Options client_;
  std::unique_ptr<SingleInstance> instance_;
  std::unique_ptr<ContainerWatcher> waiting_;  // for a log to appear
  std::unique_ptr<StartWindow> start_;
  QPointer<QFileDialog> folderDialog_;  // deletes itself when it is closed
  std::unique_ptr<Desk> desk_;
  std::unique_ptr<RemindersChild> reminders_;
};

// The program without --picture: runs until it is ended, and returns its exit code.
[[nodiscard]] int runHost(int argc, char** argv, const Options& options);

}  // namespace brevant
