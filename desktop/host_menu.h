// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QJsonArray>
#include <QMenu>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "desktop/window_kind.h"

namespace brevant {

// What the menu shows.
struct MenuState {
  QString headline;  // the running activity
  QJsonArray running, paused, categories;
  std::vector<WindowKind> wanted;
  bool onTop = false, startsAtLogin = false;
};

// The menu of the tray icon and of every window: what runs, the ways to pause, stop, resume and
// start, and the choice of windows.
class HostMenu : public QMenu {
  Q_OBJECT
 public:
  explicit HostMenu(QWidget* parent = nullptr);

  // Rebuilds the menu; while it is open, as soon as it is closed.
  void show(const MenuState& state);
  void setHeadline(const QString& headline);

 Q_SIGNALS:
  // The first line was chosen: what it tells is to be shown.
  void raiseAsked();
  // To be run as `brevant` with these arguments.
  void runAsked(const QStringList& arguments);
  void windowToggled(brevant::WindowKind kind, bool wanted);
  void onTopToggled(bool onTop);
  void startAtLoginToggled(bool wanted);
  void folderAsked();
  void quitAsked();

 private:
  void build(const MenuState& state);
  void addRun(const QString& title, const QStringList& arguments);
  void addActivities(const MenuState& state);
  using Children = QHash<QString, QJsonArray>;  // of each group; of no group: the roots
  void addStart(const QJsonArray& categories);
  void addCategories(QMenu& menu, Children& children, const QString& parentGuid, int depth);
  void addWindows(const MenuState& state);
  QAction* addChoice(const QString& title, bool isChosen);

  QAction* headline_ = nullptr;
  std::optional<MenuState> waiting_;
};

}  // namespace brevant
