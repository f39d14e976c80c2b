// SPDX-License-Identifier: MIT

// Whatever tree an answer holds, something of its size is drawn.
#include <QApplication>
#include <QImage>
#include <QJsonObject>
#include <cstdint>

#include "desktop/answer_json.h"
#include "desktop/view_builder.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brevant;
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto answer = jsonFromAnswer(text);
  if (!answer) return 0;
  const DrawingContext context{ColorScheme::kLight, QLocale::c(), [] { return 1e9; }, {}, {}};
  const auto view = buildView(answer->toObject(), context);
  view->resize(view->sizeHint().boundedTo({400, 400}));
  QImage image(view->size().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
  view->render(&image, {}, {}, QWidget::DrawChildren);
  return 0;
}
