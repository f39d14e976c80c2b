// SPDX-License-Identifier: MIT
#include "desktop/view_environment.h"

#include <functional>
#include <utility>

#include "desktop/json_values.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kMostLines = 1000;

void applyTextAlignment(ViewEnvironment& environment, const QJsonValue& value) {
  const QString name = value.toString();
  if (name == "leading"_L1) {
    environment.textAlignment = TextAlignment::kLeading;
  } else if (name == "center"_L1) {
    environment.textAlignment = TextAlignment::kCenter;
  } else if (name == "trailing"_L1) {
    environment.textAlignment = TextAlignment::kTrailing;
  } else {
    reportOnce(u"unknown text alignment "_s + name);
  }
}

using Apply = void (*)(ViewEnvironment&, const QJsonValue&);

constexpr std::pair<const char*, Apply> kModifiers[] = {
    {"font",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       if (const auto font = fontFromJson(value)) inside.font = *font;
     }},
    {"fontWeight",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       if (const auto weight = fontWeightFromJson(value)) inside.fontWeight = weight;
     }},
    {"bold",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       if (value.toBool()) inside.fontWeight = QFont::Bold;
     }},
    {"monospacedDigit", [](ViewEnvironment& inside,
                           const QJsonValue& value) { inside.monospacedDigit = value.toBool(); }},
    {"lineLimit",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       inside.lineLimit = static_cast<int>(numberFromJson(value, 1, kMostLines).value_or(0));
     }},
    {"minimumScaleFactor",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       inside.minimumScaleFactor = numberFromJson(value, 0.1, 1).value_or(1);
     }},
    {"multilineTextAlignment", applyTextAlignment},
    {"foregroundColor",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       if (const auto color = colorFromJson(value)) inside.foregroundColor = *color;
     }},
    {"opacity",
     [](ViewEnvironment& inside, const QJsonValue& value) {
       inside.opacity *= numberFromJson(value, 0, 1).value_or(1);
     }},
};

}  // namespace

bool ViewEnvironment::apply(const QString& modifier, const QJsonValue& value) {
  for (const auto& [name, change] : kModifiers) {
    if (modifier != QLatin1StringView(name)) continue;
    change(*this, value);
    return true;
  }
  return false;
}

TextLook ViewEnvironment::textLook() const {
  FontChoice choice = font;
  if (fontWeight) choice.weight = *fontWeight;
  QColor color = foregroundColor;
  color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
  return {{makeFont(choice), monospacedDigit, lineLimit, minimumScaleFactor}, textAlignment, color};
}

}  // namespace brevant
