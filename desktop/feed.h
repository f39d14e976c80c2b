// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

#include "desktop/brevant_client.h"
#include "desktop/retry_pauses.h"

namespace brevant {

// One question that is asked of `brevant` again and again, and the last good answer to it. When an
// attempt fails the last good answer stays, the trouble is told beside it, and further attempts
// follow after growing pauses.
class Feed : public QObject {
  Q_OBJECT
 public:
  // Asks, and hands over the answer once.
  using Fetch = std::function<void(QObject* receiver, BrevantClient::Done)>;
  // What is wrong with an answer; empty where it can be used.
  using Check = std::function<QString(const QJsonValue&)>;

  Feed(Fetch fetch, Check check, RetryPauses pauses, QObject* parent = nullptr);

  // Asks anew. Called while an answer is awaited, it asks once more afterwards, since that answer
  // may already be out of date.
  void reload();

  [[nodiscard]] const std::optional<QJsonValue>& lastGood() const { return lastGood_; }
  // Why the last good answer may be out of date, or there is none; empty while all is well.
  [[nodiscard]] const QString& trouble() const { return trouble_; }
  [[nodiscard]] bool isLoading() const { return loading_; }

 Q_SIGNALS:
  // An attempt has ended, well or badly; the next one may be under way already.
  void loaded();

 private:
  void take(const Answer& answer);

  Fetch fetch_;
  Check check_;
  RetryPauses pauses_;
  QTimer retry_;
  std::optional<QJsonValue> lastGood_;
  QString trouble_;
  bool loading_ = false, again_ = false;
};

}  // namespace brevant
