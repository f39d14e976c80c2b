// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QJsonArray>
#include <QObject>
#include <QTimer>
#include <array>

#include "desktop/banner_window.h"
#include "desktop/container_model.h"
#include "desktop/host_menu.h"
#include "desktop/island_window.h"
#include "desktop/preferences.h"
#include "desktop/tray.h"
#include "desktop/widget_window.h"

namespace brevant {

// The windows and the tray icon of one container: they show what its model knows and do what people
// ask of them.
class Desk : public QObject {
  Q_OBJECT
 public:
  // The preferences must outlive the desk.
  Desk(const ContainerModel::Options& options, const DrawingContext& drawing,
       Preferences& preferences, QObject* parent = nullptr);

  void setColorScheme(ColorScheme scheme);
  // Brings the windows to the front; when none is on screen, shows one.
  void raise();
  // Runs `brevant` with the arguments, and says so where people look when it does not work.
  void run(const QStringList& arguments);
  // Says something for a moment.
  void say(const QString& message);

  [[nodiscard]] ContainerModel& model() { return model_; }
  [[nodiscard]] CardWindow& window(WindowKind kind);

 Q_SIGNALS:
  void folderAsked();
  void quitAsked();

 private:
  void connectWindow(CardWindow& window);
  void connectMenu(HostMenu& menu);
  void runIntent(CardWindow& window, const IntentCall& call);
  void openLink(CardWindow& window, const QString& destination);
  void showWindow(WindowKind kind, bool wanted);
  void showEntry();
  void showLog();
  void renewLiveOf(const QString& guid);
  [[nodiscard]] QJsonArray liveWithHalts();
  void showLive();
  void showMenus();
  void showHeadline();
  void tellIfTrayIsMissing();
  // The largest, for what has to be read; null when none is on screen.
  [[nodiscard]] CardWindow* visibleWindow();
  [[nodiscard]] QString headline() const;
  [[nodiscard]] QJsonObject shownEntry() const;

  Preferences& preferences_;
  std::function<double()> now_;
  ContainerModel model_;
  WidgetWindow small_, medium_;
  BannerWindow banner_;
  IslandWindow island_;
  std::array<CardWindow*, 4> windows_{&small_, &medium_, &banner_, &island_};
  HostMenu menu_;
  Tray tray_;
  QTimer headlineTick_;
  int shownOthers_ = 0;
  QJsonArray shownLive_;
  // By the id of a Live Activity whose activity ran: when it was first seen not to; 0 while it
  // does.
  QHash<QString, double> lastSeenRunning_;
};

}  // namespace brevant
