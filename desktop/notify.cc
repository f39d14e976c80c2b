// SPDX-License-Identifier: MIT
#include "desktop/notify.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kService = "org.freedesktop.Notifications"_L1;
constexpr auto kPath = "/org/freedesktop/Notifications"_L1;
constexpr int kPatience = 3000;         // milliseconds, in which the service may be started
constexpr int kAsTheDesktopLikes = -1;  // how long it is shown

}  // namespace

bool notify(const QString& message) {
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, u"Notify"_s);
  const QVariantMap hints{{u"desktop-entry"_s, u"org.brevant.Desktop"_s}};
  call << u"Brevant"_s << 0u << u"brevant"_s << u"Brevant"_s
       << message.toHtmlEscaped()  // the desktop takes the text for markup
       << QStringList() << hints << kAsTheDesktopLikes;
  const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, kPatience);
  return reply.type() == QDBusMessage::ReplyMessage;
}

}  // namespace brevant
