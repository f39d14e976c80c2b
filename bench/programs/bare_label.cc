// SPDX-License-Identifier: MIT

// The least that a program with the widget toolkit does: draws one label into an image, and ends.
#include <QApplication>
#include <QImage>
#include <QLabel>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  QLabel label(QStringLiteral("23:12"));
  label.resize(386, 206);
  QImage image(label.size() * 2, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(2);
  label.render(&image);
  return image.save(QString::fromLocal8Bit(argv[1]), "PNG") ? 0 : 1;
}
