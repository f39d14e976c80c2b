// SPDX-License-Identifier: MIT

// Draws the medium widget again and again, each time from the other of two answers, as a reload
// does, and prints how many seconds one takes: the middle of many.
//   bench_redraw TIMELINE.json TIMELINE.json
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "desktop/surface.h"

namespace {

using namespace Qt::Literals::StringLiterals;

QByteArray contentOf(const char* name) {
  QFile file(QString::fromLocal8Bit(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void draw(const QByteArray& answer, QImage& image) {
  const QJsonObject entry = QJsonDocument::fromJson(answer)["entries"_L1][0].toObject();
  brevant::DrawingContext context;
  context.now = [] { return 1795435200.0; };
  const auto card = brevant::buildSurface(brevant::Surface::kMedium, entry, context);
  card->resize(card->sizeHint());
  image.fill(Qt::transparent);
  card->render(&image, {}, {}, QWidget::DrawChildren);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  if (argc != 3) return 2;
  const QByteArray answers[] = {contentOf(argv[1]), contentOf(argv[2])};
  QImage image(QSize(386, 206) * 2, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(2);
  std::vector<qint64> times;
  QElapsedTimer timer;
  for (std::size_t round = 0; round < 101; ++round) {
    timer.start();
    draw(answers[round % 2], image);
    times.push_back(timer.nsecsElapsed());
  }
  std::nth_element(times.begin(), times.begin() + 50, times.end());
  std::printf("%.9f\n", static_cast<double>(times[50]) / 1e9);
  return 0;
}
