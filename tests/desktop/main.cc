// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "desktop/card_accessible.h"
#include "desktop/translate.h"

// The tests run without a display, in English, in UTC, and with folders of their own, so that no
// choice and no log of whoever runs them plays a part.
int main(int argc, char** argv) {
  const QTemporaryDir home;
  for (const char* name :
       {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
    qputenv(name, home.path().toUtf8());
  qputenv("BREVANT", BREVANT_PROGRAM);
  qunsetenv("BREVANT_CONTAINER");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  qputenv("LC_ALL", "C.UTF-8");
  qputenv("TZ", "UTC");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  brevant::useMessagesOfEnvironment();
  const QApplication app(argc, argv);
  brevant::installCardAccessibility();
  return RUN_ALL_TESTS();
}
