// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QString>
#include <QVariant>
#include <vector>

namespace brevant {

// A message bus of the test's own, on which it plays one of the desktop's services: it notes every
// call and answers it with `reply`.
class PrivateBus : public QDBusVirtualObject {
 public:
  PrivateBus(const QString& service, const QString& path);
  ~PrivateBus() override;

  // For those who call.
  [[nodiscard]] QDBusConnection caller();
  [[nodiscard]] const QString& address() const { return address_; }
  void send(const QDBusMessage& signal) { service_.send(signal); }
  [[nodiscard]] const std::vector<QVariantList>& calls() const { return calls_; }

  QVariant reply;

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  QProcess daemon_;
  QString address_;
  QDBusConnection service_;
  std::vector<QVariantList> calls_;
};

}  // namespace brevant
