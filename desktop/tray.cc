// SPDX-License-Identifier: MIT
#include "desktop/tray.h"

#include <QApplication>
#include <QPalette>
#include <QPixmap>
#include <QStyle>

#include "desktop/image_source.h"
#include "desktop/view_limits.h"

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
  constexpr QSize kPixels(64, 64);
  qint64 pixels = kMostPixels;
  const auto picture = image.isEmpty() ? std::nullopt : pictureFromJson(image, pixels);
  if (!picture) return icon_.setIcon(programIcon());
  // As a panel is painted, as far as anybody can tell.
  const QColor panel = QGuiApplication::palette().color(QPalette::Window);
  icon_.setIcon(QPixmap::fromImage(readableOn(panel, *picture).draw(kPixels)));
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
