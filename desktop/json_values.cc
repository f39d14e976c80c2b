// SPDX-License-Identifier: MIT
#include "desktop/json_values.h"

#include <QSet>
#include <algorithm>
#include <cstdio>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

std::optional<double> numberFromJson(const QJsonValue& json, double least, double most) {
  if (!json.isDouble()) return std::nullopt;
  return std::clamp(json.toDouble(), least, most);
}

std::optional<QColor> colorFromJson(const QJsonValue& json) {
  const auto part = [&](QLatin1StringView name) { return numberFromJson(json[name], 0, 1); };
  const auto red = part("red"_L1), green = part("green"_L1), blue = part("blue"_L1);
  if (!red || !green || !blue) {
    reportOnce(u"not a colour"_s);
    return std::nullopt;
  }
  const auto narrow = [](double value) { return static_cast<float>(value); };
  return QColor::fromRgbF(narrow(*red), narrow(*green), narrow(*blue),
                          narrow(part("alpha"_L1).value_or(1)));
}

void reportOnce(const QString& what) {
  // What a hostile tree can add to this is bounded in number and in length.
  constexpr qsizetype kMostReports = 50, kLongestReport = 100;
  static QSet<QString> reported;
  QString report = what.left(kLongestReport);
  std::replace_if(
      report.begin(), report.end(), [](QChar c) { return !c.isPrint(); }, u'?');
  if (reported.size() >= kMostReports || reported.contains(report)) return;
  reported.insert(report);
  std::fprintf(stderr, "brevant-desktop: left out of the drawing: %s\n", qPrintable(report));
}

}  // namespace brevant
