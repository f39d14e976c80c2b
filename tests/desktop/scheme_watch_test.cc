#include "desktop/scheme_watch.h"

#include <QApplication>
#include <QDBusVariant>
#include <QPalette>
#include <QScopeGuard>
#include <gmock/gmock.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

// The tests have no portal; what one would send is handed over as the bus does.
void sendSetting(SchemeWatch& watch, const QString& key, const QVariant& value) {
  const bool taken = QMetaObject::invokeMethod(
      &watch, "takeSetting", Q_ARG(QString, u"org.freedesktop.appearance"_s), Q_ARG(QString, key),
      Q_ARG(QDBusVariant, QDBusVariant(value)));
  ASSERT_TRUE(taken);
}

TEST(SchemeWatch, FollowsThePaletteUntilThePortalKnowsBetter) {
  const auto restore =
      qScopeGuard([old = QApplication::palette()] { QApplication::setPalette(old); });
  QApplication::setPalette(QPalette(Qt::white, Qt::white));
  SchemeWatch watch;
  int changes = 0;
  QObject::connect(&watch, &SchemeWatch::changed, [&] { ++changes; });
  EXPECT_EQ(watch.scheme(), ColorScheme::kLight);

  QApplication::setPalette(QPalette(Qt::black, Qt::black));
  EXPECT_TRUE(waitUntil([&] { return watch.scheme() == ColorScheme::kDark; }));
  sendSetting(watch, u"color-scheme"_s, 2u);
  EXPECT_EQ(watch.scheme(), ColorScheme::kLight);
  sendSetting(watch, u"accent-color"_s, 1u);
  EXPECT_EQ(watch.scheme(), ColorScheme::kLight);
  sendSetting(watch, u"color-scheme"_s, QVariant::fromValue(QDBusVariant(1u)));
  EXPECT_EQ(watch.scheme(), ColorScheme::kDark);
  sendSetting(watch, u"color-scheme"_s, 0u);
  EXPECT_EQ(watch.scheme(), ColorScheme::kDark) << "no preference: the palette again";
  EXPECT_EQ(changes, 3);
}

}  // namespace
}  // namespace brevant
