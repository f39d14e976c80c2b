// SPDX-License-Identifier: MIT
#include "desktop/spoken.h"

#include <QStringList>
#include <algorithm>
#include <limits>

#include "desktop/arrangement.h"
#include "desktop/surface.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A content state counts its start from 2001-01-01 00:00 UTC.
constexpr double kReferenceDate = 978307200;

QString spokenActivity(const QString& name, double start, double now) {
  return u"%1, %2"_s.arg(name, spokenDuration(now - start));
}

}  // namespace

QString spokenDuration(double seconds) {
  const double most = std::numeric_limits<int>::max();
  const int whole = static_cast<int>(std::clamp(seconds, 0.0, most));
  const int hours = whole / 3600;
  const int minutes = whole / 60 % 60;
  if (whole < 60) return translatePlural("%1 second", "%1 seconds", whole);
  const QString spokenMinutes = translatePlural("%1 minute", "%1 minutes", minutes);
  if (hours == 0) return spokenMinutes;
  const QString spokenHours = translatePlural("%1 hour", "%1 hours", hours);
  return minutes == 0 ? spokenHours : spokenHours + u' ' + spokenMinutes;
}

QString spokenEntry(const QJsonObject& entry, double now) {
  const QString name = entry["name"_L1].toString();
  if (name.isEmpty()) return translate("complication.no_running");
  if (!entry["start"_L1].isDouble()) return name;
  return spokenActivity(name, entry["start"_L1].toDouble(), now);
}

QString spokenTotal(const QJsonObject& entry, double now) {
  const int others = entry[kOthers].toInt();
  const QString more = others > 0 ? u" +%1"_s.arg(others) : QString();
  return spokenEntry(entry, now + entry["duration"_L1].toDouble()) + more;
}

QString spokenPresentations(const QJsonArray& presentations, double now) {
  QStringList spoken;
  for (const QJsonValue& presentation : presentations) {
    const QJsonValue state = presentation["contentState"_L1];
    const double start = state["start"_L1].toDouble() + kReferenceDate;
    const QString name = state["typeName"_L1].toString();
    const QJsonValue halt = presentation[kHalt]["state"_L1];
    if (halt.isString()) {
      const QString word = wordFor(halt == "paused"_L1 ? Halt::kPaused : Halt::kStopped);
      spoken << u"%1, %2"_s.arg(name, word);
    } else {
      spoken << spokenActivity(name, start, now);
    }
  }
  return spoken.join(u"; "_s);
}

}  // namespace brevant
