// SPDX-License-Identifier: MIT
#include "desktop/preferences.h"

#include <QStandardPaths>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

QString keyOf(WindowKind kind, QLatin1StringView what) {
  return wordOf(kind) + u'/' + what;
}

// Before any choice: the widget with the controls, and the island for what is live.
bool isWantedAtFirst(WindowKind kind) {
  return kind == WindowKind::kMedium || kind == WindowKind::kIsland;
}

}  // namespace

Preferences::Preferences(const QString& file) : settings_(file, QSettings::IniFormat) {}

QString Preferences::defaultFile() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return folder + u"/brevant/desktop.ini"_s;
}

QString Preferences::container() const {
  return settings_.value(u"container"_s).toString();
}

void Preferences::setContainer(const QString& folder) {
  settings_.setValue(u"container"_s, folder);
}

bool Preferences::isWanted(WindowKind kind) const {
  return settings_.value(keyOf(kind, "shown"_L1), isWantedAtFirst(kind)).toBool();
}

void Preferences::setWanted(WindowKind kind, bool wanted) {
  settings_.setValue(keyOf(kind, "shown"_L1), wanted);
}

std::optional<QPoint> Preferences::position(WindowKind kind) const {
  const QVariant value = settings_.value(keyOf(kind, "position"_L1));
  if (!value.canConvert<QPoint>()) return std::nullopt;
  return value.toPoint();
}

void Preferences::setPosition(WindowKind kind, QPoint position) {
  settings_.setValue(keyOf(kind, "position"_L1), position);
}

bool Preferences::isOnTop() const {
  return settings_.value(u"onTop"_s, false).toBool();
}

void Preferences::setOnTop(bool onTop) {
  settings_.setValue(u"onTop"_s, onTop);
}

bool Preferences::tellOnceThatTrayIsMissing() {
  const QString key = u"toldThatTrayIsMissing"_s;
  if (settings_.value(key).toBool()) return false;
  settings_.setValue(key, true);
  return true;
}

}  // namespace brevant
