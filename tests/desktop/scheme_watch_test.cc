// SPDX-License-Identifier: MIT
#include "desktop/scheme_watch.h"

#include <QApplication>
#include <QPalette>
#include <QScopeGuard>
#include <gmock/gmock.h>

#include "fake_brevant.h"
#include "private_bus.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(SchemeWatch, FollowsThePortalAndWhereItIsSilentThePalette) {
  const QString path = u"/org/freedesktop/portal/desktop"_s;
  PrivateBus bus(u"org.freedesktop.portal.Desktop"_s, path);
  const auto tell = [&](const QString& key, const QVariant& value) {
    QDBusMessage signal =
        QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal << u"org.freedesktop.appearance"_s << key << QVariant::fromValue(QDBusVariant(value));
    bus.send(signal);
  };
  const auto restore =
      qScopeGuard([old = QApplication::palette()] { QApplication::setPalette(old); });
  QApplication::setPalette(QPalette(Qt::white, Qt::white));
  SchemeWatch watch(bus.caller());  // first: what is used before may be known by then
  // As portals answer: wrapped twice.
  bus.reply = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1u))));
  const auto becomes = [&](ColorScheme scheme) {
    return waitUntil([&] { return watch.scheme() == scheme; });
  };
  EXPECT_EQ(watch.scheme(), ColorScheme::kLight) << "the palette, until the portal answers";
  EXPECT_TRUE(becomes(ColorScheme::kDark));
  tell(u"color-scheme"_s, 2u);
  EXPECT_TRUE(becomes(ColorScheme::kLight));
  tell(u"accent-color"_s, 1u);
  tell(u"color-scheme"_s, 1u);
  EXPECT_TRUE(becomes(ColorScheme::kDark));
  tell(u"color-scheme"_s, 0u);
  EXPECT_TRUE(becomes(ColorScheme::kLight)) << "no preference: the palette again";
  QApplication::setPalette(QPalette(Qt::black, Qt::black));
  EXPECT_TRUE(becomes(ColorScheme::kDark));
}

}  // namespace
}  // namespace brevant
