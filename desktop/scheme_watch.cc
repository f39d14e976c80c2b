// SPDX-License-Identifier: MIT
#include "desktop/scheme_watch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <cstdio>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kService = "org.freedesktop.portal.Desktop"_L1;
constexpr auto kPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto kInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto kGroup = "org.freedesktop.appearance"_L1;
constexpr auto kKey = "color-scheme"_L1;

ColorScheme schemeOfPalette() {
  const QColor window = QGuiApplication::palette().color(QPalette::Window);
  return window.lightness() < 128 ? ColorScheme::kDark : ColorScheme::kLight;
}

// 1 prefers dark and 2 light; anything else leaves it open. Some portals wrap the number twice.
std::optional<ColorScheme> schemeOfSetting(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  switch (value.toUInt()) {
    case 1:
      return ColorScheme::kDark;
    case 2:
      return ColorScheme::kLight;
    default:
      return std::nullopt;
  }
}

}  // namespace

SchemeWatch::SchemeWatch(const QDBusConnection& bus, QObject* parent)
    : QObject(parent), scheme_(schemeOfPalette()) {
  qGuiApp->installEventFilter(this);
  // The bus finds the slot by the names of its types: this one is not known by itself.
  qRegisterMetaType<QDBusVariant>();
  QDBusConnection listening(bus);
  const bool listens = listening.connect(kService, kPath, kInterface, u"SettingChanged"_s, this,
                                         SLOT(takeSetting(QString, QString, QDBusVariant)));
  if (!listens && bus.isConnected())
    std::fprintf(stderr, "brevant-desktop: changes of the desktop's colours are not followed\n");
  askPortal(bus);
}

bool SchemeWatch::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) decide();
  return QObject::eventFilter(watched, event);
}

void SchemeWatch::takeSetting(const QString& group, const QString& key, const QDBusVariant& value) {
  if (group != kGroup || key != kKey) return;
  fromPortal_ = schemeOfSetting(value.variant());
  decide();
}

void SchemeWatch::askPortal(const QDBusConnection& bus) {
  QDBusMessage read = QDBusMessage::createMethodCall(kService, kPath, kInterface, u"Read"_s);
  read << QString(kGroup) << QString(kKey);
  const auto* call = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
    const QDBusPendingReply<QDBusVariant> reply = *done;
    done->deleteLater();
    if (reply.isValid()) takeSetting(kGroup, kKey, reply.value());
  });
}

void SchemeWatch::decide() {
  const ColorScheme now = fromPortal_.value_or(schemeOfPalette());
  if (now == scheme_) return;
  scheme_ = now;
  Q_EMIT changed(now);
}

}  // namespace brevant
