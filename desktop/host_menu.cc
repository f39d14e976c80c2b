// SPDX-License-Identifier: MIT
#include "desktop/host_menu.h"

#include <QIcon>
#include <QJsonObject>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <utility>

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Deeper groups are not offered: a log can hold a chain of them that no screen can.
constexpr int kDeepest = 8;

// Nor are more than a screen can list; each category also has a picture of its own.
constexpr qsizetype kMostCategories = 1000, kMostActivities = 20;

QString nameOf(const QJsonValue& record) {
  // An ampersand would underline the letter after it.
  return record["name"_L1].toString().replace(u'&', u"&&"_s);
}

QString guidOf(const QJsonValue& record) {
  return record["guid"_L1].toString();
}

QIcon dotOf(const QJsonValue& category) {
  QPixmap dot(32, 32);
  dot.fill(Qt::transparent);
  QPainter painter(&dot);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(static_cast<QRgb>(category["color"_L1].toInteger())));
  painter.drawEllipse(6, 6, 20, 20);
  return dot;
}

// "Pause" while it can only mean one activity, "Pause Reading" otherwise.
QString titleFor(const QString& alone, const QString& named, const QJsonArray& activities,
                 const QJsonValue& activity) {
  return activities.size() == 1 ? alone : named.arg(nameOf(activity));
}

}  // namespace

HostMenu::HostMenu(QWidget* parent) : QMenu(parent) {
  // Queued, because the action that was chosen is told only after the menu has closed.
  const auto catchUp = [this] {
    if (waiting_) build(*std::exchange(waiting_, std::nullopt));
  };
  connect(this, &QMenu::aboutToHide, this, catchUp, Qt::QueuedConnection);
}

void HostMenu::show(const MenuState& state) {
  if (isVisible()) {
    waiting_ = state;
  } else {
    build(state);
  }
}

void HostMenu::build(const MenuState& state) {
  for (QMenu* old : findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) old->deleteLater();
  clear();
  headline_ = addAction(QString());
  connect(headline_, &QAction::triggered, this, &HostMenu::raiseAsked);
  setHeadline(state.headline);
  addSeparator();
  addActivities(state);
  addStart(state.categories);
  addSeparator();
  addWindows(state);
  addSeparator();
  connect(addAction(translate("Choose a folder…")), &QAction::triggered, this,
          &HostMenu::folderAsked);
  connect(addAction(translate("Quit")), &QAction::triggered, this, &HostMenu::quitAsked);
}

void HostMenu::setHeadline(const QString& headline) {
  if (headline_) headline_->setText(QString(headline).replace(u'&', u"&&"_s));
}

void HostMenu::addRun(const QString& title, const QStringList& arguments) {
  connect(addAction(title), &QAction::triggered, this,
          [this, arguments] { Q_EMIT runAsked(arguments); });
}

void HostMenu::addActivities(const MenuState& state) {
  for (qsizetype i = 0; i < std::min(state.running.size(), kMostActivities); ++i) {
    const QJsonValue activity = state.running[i];
    addRun(titleFor(translate("Pause"), translate("Pause %1"), state.running, activity),
           {u"pause"_s, guidOf(activity)});
    addRun(titleFor(translate("Stop"), translate("Stop %1"), state.running, activity),
           {u"stop"_s, guidOf(activity)});
  }
  for (qsizetype i = 0; i < std::min(state.paused.size(), kMostActivities); ++i) {
    const QJsonValue activity = state.paused[i];
    addRun(translate("Resume %1").arg(nameOf(activity)), {u"resume"_s, guidOf(activity)});
  }
}

void HostMenu::addStart(const QJsonArray& categories) {
  Children children;
  for (qsizetype i = 0; i < std::min(categories.size(), kMostCategories); ++i)
    children[categories[i]["parentGuid"_L1].toString()] << categories[i];
  auto* start = new QMenu(translate("Start"), this);
  addCategories(*start, children, {}, 0);
  start->setEnabled(!start->isEmpty());
  addMenu(start);
}

// Each guid's once: groups that share one would otherwise each hold all of them, level by level.
void HostMenu::addCategories(QMenu& menu, Children& children, const QString& parentGuid,
                             int depth) {
  for (const QJsonValue& category : children.take(parentGuid)) {
    if (!category["isGroup"_L1].toBool()) {
      const QStringList start{u"start"_s, guidOf(category)};
      connect(menu.addAction(dotOf(category), nameOf(category)), &QAction::triggered, this,
              [this, start] { Q_EMIT runAsked(start); });
    } else if (depth < kDeepest && !guidOf(category).isEmpty()) {
      QMenu* group = menu.addMenu(dotOf(category), nameOf(category));
      addCategories(*group, children, guidOf(category), depth + 1);
    }
  }
}

void HostMenu::addWindows(const MenuState& state) {
  for (const WindowKind kind : kAllWindows) {
    const bool isWanted =
        std::find(state.wanted.begin(), state.wanted.end(), kind) != state.wanted.end();
    connect(addChoice(titleOf(kind), isWanted), &QAction::triggered, this,
            [this, kind](bool wanted) { Q_EMIT windowToggled(kind, wanted); });
  }
  connect(addChoice(translate("Always on top"), state.onTop), &QAction::triggered, this,
          &HostMenu::onTopToggled);
  connect(addChoice(translate("Start at login"), state.startsAtLogin), &QAction::triggered, this,
          &HostMenu::startAtLoginToggled);
}

QAction* HostMenu::addChoice(const QString& title, bool isChosen) {
  QAction* choice = addAction(title);
  choice->setCheckable(true);
  choice->setChecked(isChosen);
  return choice;
}

}  // namespace brevant
