// SPDX-License-Identifier: MIT
#include "private_bus.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

QString started(QProcess& daemon) {
  daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
  daemon.waitForReadyRead();
  return QString::fromLocal8Bit(daemon.readLine()).trimmed();
}

}  // namespace

PrivateBus::PrivateBus(const QString& service, const QString& path)
    : address_(started(daemon_)),
      service_(QDBusConnection::connectToBus(address_, u"of the service"_s)) {
  service_.registerVirtualObject(path, this);
  if (!service_.registerService(service)) qFatal("no bus of the test's own");
}

PrivateBus::~PrivateBus() {
  QDBusConnection::disconnectFromBus(u"of the service"_s);
  QDBusConnection::disconnectFromBus(u"of the caller"_s);
  daemon_.kill();
  daemon_.waitForFinished();
}

QDBusConnection PrivateBus::caller() {
  return QDBusConnection::connectToBus(address_, u"of the caller"_s);
}

bool PrivateBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  calls_.push_back(message.arguments());
  return connection.send(message.createReply(reply));
}

}  // namespace brevant
