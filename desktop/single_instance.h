// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <memory>

namespace brevant {

// One host per container: the first holds a lock and listens on a socket beside it, in the user's
// runtime folder; those after it send it a word and leave. Both go with the process.
class SingleInstance : public QObject {
  Q_OBJECT
 public:
  // Null when another process holds the container.
  [[nodiscard]] static std::unique_ptr<SingleInstance> claim(const QString& container);
  // Sends a word to the one that holds the container; false when there is none.
  static bool tell(const QString& container, const QByteArray& word);

  ~SingleInstance() override;

 Q_SIGNALS:
  void told(const QByteArray& word);

 private:
  explicit SingleInstance(const QString& path);
  void listen();
  void read();

  QString path_;
  QLockFile lock_;
  int socket_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace brevant
