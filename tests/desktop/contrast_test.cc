// SPDX-License-Identifier: MIT

// Whether everything can be read, measured in the drawn pixels of what the real program answers.
#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

#include "desktop/brevant_client.h"
#include "desktop/control.h"
#include "desktop/image_view.h"
#include "desktop/programs.h"
#include "desktop/surface.h"
#include "desktop/text_view.h"
#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Of a display's light, as the guidelines for readable content define it.
double luminance(QRgb color) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
         0.0722 * linear(qBlue(color));
}

double contrast(QRgb a, QRgb b) {
  const double one = luminance(a), other = luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

// Of what stands out most in a part of a picture, against the colour that most of the part has.
double contrastWithin(const QImage& part) {
  std::map<QRgb, int> pixels;
  for (int y = 0; y < part.height(); ++y)
    for (int x = 0; x < part.width(); ++x) ++pixels[part.pixel(x, y)];
  const auto ground = std::max_element(pixels.begin(), pixels.end(),
                                       [](auto& a, auto& b) { return a.second < b.second; });
  double most = 1;
  for (const auto& [color, count] : pixels) most = std::max(most, contrast(color, ground->first));
  return most;
}

// A resource, such as a control's symbol, keeps its looks: only icons have no name.
QJsonValue withIcons(const QJsonValue& value, const QString& png) {
  if (value.isArray()) {
    QJsonArray array;
    for (const QJsonValue& item : value.toArray()) array << withIcons(item, png);
    return array;
  }
  if (!value.isObject()) return value;
  QJsonObject object = value.toObject();
  for (auto it = object.begin(); it != object.end(); ++it) *it = withIcons(*it, png);
  if (object.contains("png"_L1) && !object.contains("name"_L1)) object["png"_L1] = png;
  return object;
}

// The icon that covers most: a square of the colour.
QString squareOf(QRgb color) {
  QImage image(32, 32, QImage::Format_RGB32);
  image.fill(color);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return QString::fromLatin1(png.toBase64());
}

bool isIcon(const QWidget& widget) {
  if (!dynamic_cast<const ImageView*>(&widget)) return false;
  for (const QWidget* above = &widget; above; above = above->parentWidget())
    if (dynamic_cast<const Control*>(above)) return false;
  return true;
}

class ContrastTest : public testing::Test {
 protected:
  QByteArray run(const QStringList& arguments, const QByteArray& input = {}) const {
    QProcess brevant;
    brevant.start(findBrevant(), QStringList{u"--container"_s, folder_.filePath(u"log"_s)} +
                                     QStringList{u"--now"_s, u"1e9"_s, u"--json"_s} + arguments);
    brevant.write(input);
    brevant.closeWriteChannel();
    brevant.waitForFinished();
    return brevant.readAllStandardOutput();
  }

  // The sample's own colours, the cards', and the ends and the middle of what there is.
  [[nodiscard]] std::vector<QRgb> categoryColors() const {
    std::vector<QRgb> colors{0x000000, 0xFFFFFF, 0x1C1C1E, 0x808080, 0x8E8E93, 0xF2F2F2,
                             0x333333, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0x00FFFF};
    for (const QJsonValue& category : QJsonDocument::fromJson(run({u"categories"_s})).array())
      colors.push_back(static_cast<QRgb>(category["color"_L1].toInteger()));
    return colors;
  }

  void check(const QString& name, const QJsonObject& answer, const DrawingContext& context) {
    const auto card = buildSurface(*surfaceFromName(name), answer, context);
    const double scale = 2;
    const QImage image = drawn(*card, {}, scale);
    const auto part = [&](const QWidget& widget) {
      const QRect place(widget.mapTo(card.get(), QPoint()), widget.size());
      return QRectF(place.topLeft() * scale, place.size() * scale).toRect();
    };
    for (const QWidget* widget : card->findChildren<QWidget*>()) {
      if (const auto* text = dynamic_cast<const TextView*>(widget)) {
        if (text->text().trimmed().isEmpty()) continue;
        EXPECT_GE(contrastWithin(image.copy(part(*text))), 4.5) << qPrintable(text->text());
        ++texts_;
      } else if (isIcon(*widget)) {
        // With the ground around it.
        EXPECT_GE(contrastWithin(image.copy(part(*widget).adjusted(-3, -3, 3, 3))), 3) << "icon";
        ++icons_;
      } else if (dynamic_cast<const Control*>(widget)) {
        const QRect all = part(*widget);
        QRect middle = all;  // without the corners around the round ground
        middle.setSize(all.size() * 0.6);
        middle.moveCenter(all.center());
        EXPECT_GE(contrastWithin(image.copy(middle)), 3) << qPrintable(widget->accessibleName());
        ++controls_;
      }
    }
  }

  QTemporaryDir folder_;
  int texts_ = 0, controls_ = 0, icons_ = 0;
};

TEST_F(ContrastTest, EverythingStandsOutWithEveryCategoryColour) {
  run({u"sample"_s, folder_.filePath(u"log"_s)});
  run({u"live"_s, u"start"_s}, R"({"guid":"A","typeName":"Reading","icon":"cat_3","color":255,
                                   "start":21691000,"message":""})");
  const std::vector<QRgb> colors = categoryColors();
  ASSERT_GT(colors.size(), 20U);
  for (const auto& scheme : {u"light"_s, u"dark"_s}) {
    DrawingContext context = drawingContext();
    context.colorScheme = scheme == u"dark"_s ? ColorScheme::kDark : ColorScheme::kLight;
    const QStringList inScheme{u"--color-scheme"_s, scheme};
    const QJsonValue entry =
        QJsonDocument::fromJson(run(inScheme + QStringList{u"timeline"_s}))["entries"_L1][0];
    const QJsonValue live =
        QJsonDocument::fromJson(run(inScheme + QStringList{u"live"_s, u"show"_s})).object();
    for (const QRgb color : colors) {
      SCOPED_TRACE(scheme.toStdString() + " " + std::to_string(color & 0xFFFFFF));
      const QString icon = squareOf(color);
      for (const auto& name : {u"small"_s, u"medium"_s})
        check(name, withIcons(entry, icon).toObject(), context);
      for (const auto& name : {u"lock-screen"_s, u"island-compact"_s, u"island-expanded"_s})
        check(name, withIcons(live, icon).toObject(), context);
    }
  }
  const int cards = 2 * static_cast<int>(colors.size());
  EXPECT_EQ(texts_, cards * (3 + 4 + 4 + 2 + 2)) << "of the five surfaces";
  EXPECT_EQ(icons_, cards * 5);
  EXPECT_EQ(controls_, cards * (0 + 2 + 2 + 0 + 2));
}

}  // namespace
}  // namespace brevant
