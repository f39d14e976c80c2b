// SPDX-License-Identifier: MIT
#include "desktop/fonts.h"

#include <QJsonObject>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "desktop/json_values.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kLargestFont = 256;
// From this size on the tighter cut of the typeface reads better.
constexpr int kDisplaySize = 28;

struct NamedStyle {
  const char* name;
  int size;
  QFont::Weight weight = QFont::Normal;
};

constexpr NamedStyle kStyles[] = {
    {"largeTitle", 34}, {"title", 28},       {"title2", 22},   {"title3", 20},
    {"body", 17},       {"callout", 16},     {"footnote", 13}, {"headline", 17, QFont::DemiBold},
    {"caption", 12},    {"subheadline", 15},
};

constexpr std::pair<const char*, QFont::Weight> kWeights[] = {
    {"ultraLight", QFont::Thin}, {"thin", QFont::ExtraLight}, {"light", QFont::Light},
    {"regular", QFont::Normal},  {"medium", QFont::Medium},   {"semibold", QFont::DemiBold},
    {"bold", QFont::Bold},       {"heavy", QFont::ExtraBold}, {"black", QFont::Black},
};

}  // namespace

std::optional<QFont::Weight> fontWeightFromJson(const QJsonValue& json) {
  const QString name = json.toString();
  for (const auto& [known, weight] : kWeights) {
    if (name == QLatin1StringView(known)) return weight;
  }
  reportOnce(u"unknown font weight "_s + name);
  return std::nullopt;
}

std::optional<FontChoice> fontFromJson(const QJsonValue& json) {
  const QString style = json["style"_L1].toString();
  for (const NamedStyle& known : kStyles) {
    if (style == QLatin1StringView(known.name)) return FontChoice{known.size, known.weight};
  }
  const std::optional<double> size = numberFromJson(json["size"_L1], 1, kLargestFont);
  if (!size) {
    reportOnce(u"unknown font "_s + style);
    return std::nullopt;
  }
  FontChoice choice{qRound(*size), QFont::Normal};
  const QString design = json["design"_L1].toString(u"default"_s);
  if (design != "default"_L1) reportOnce(u"unknown font design "_s + design);
  if (json["weight"_L1].isString()) {
    choice.weight = fontWeightFromJson(json["weight"_L1]).value_or(QFont::Normal);
  }
  return choice;
}

QFont makeFont(const FontChoice& choice) {
  const QString family = choice.size >= kDisplaySize ? u"Inter Display"_s : u"Inter"_s;
  QFont font;
  // What the typeface lacks comes from the one that goes with it; the system knows the rest.
  font.setFamilies({family, u"Inter"_s, u"Noto Sans Arabic"_s});
  font.setPixelSize(choice.size);
  font.setWeight(choice.weight);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace brevant
