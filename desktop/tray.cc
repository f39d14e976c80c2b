// SPDX-License-Identifier: MIT
#include "desktop/tray.h"

#include <QApplication>
#include <QPixmap>
#include <QStyle>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

Tray::Tray(QObject* parent) : QObject(parent) {
  icon_.setIcon(programIcon());
  icon_.setContextMenu(&menu_);
  connect(&icon_, &QSystemTrayIcon::activated, this, [this](auto reason) {
    if (reason == QSystemTrayIcon::Trigger) Q_EMIT activated();
  });
  icon_.show();
}

void Tray::setImage(const QJsonObject& image) {
  QPixmap pixmap;
  pixmap.loadFromData(QByteArray::fromBase64(image["png"_L1].toString().toLatin1()), "PNG");
  icon_.setIcon(pixmap.isNull() ? programIcon() : QIcon(pixmap));
}

void Tray::setHeadline(const QString& headline) {
  menu_.setHeadline(headline);
  if (icon_.toolTip() != headline) icon_.setToolTip(headline);
}

void Tray::say(const QString& message) {
  icon_.showMessage({}, message, programIcon());
}

QIcon programIcon() {
  return QIcon::fromTheme(u"brevant"_s,
                          QApplication::style()->standardIcon(QStyle::SP_ComputerIcon));
}

}  // namespace brevant
