// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QSystemTrayIcon>

#include "desktop/host_menu.h"

namespace brevant {

// The icon in the tray, with the running category's picture, and the menu behind it. It may be made
// before there is a tray: the icon appears when one comes.
class Tray : public QObject {
  Q_OBJECT
 public:
  explicit Tray(QObject* parent = nullptr);

  [[nodiscard]] HostMenu& menu() { return menu_; }
  // `image` as the timeline carries it; one that cannot be read shows the program's own icon.
  void setImage(const QJsonObject& image);
  void setHeadline(const QString& headline);
  void say(const QString& message);

  [[nodiscard]] static bool isAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

 Q_SIGNALS:
  // The icon itself was clicked.
  void activated();

 private:
  HostMenu menu_;
  QSystemTrayIcon icon_;
};

// The program's own icon.
[[nodiscard]] QIcon programIcon();

}  // namespace brevant
