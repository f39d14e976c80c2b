// SPDX-License-Identifier: MIT
#include "desktop/desk.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "desktop/autostart.h"
#include "desktop/link_opener.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The headline tells minutes.
constexpr auto kHeadlineTick = 15s;
// A tray may start after this program, when people log in.
constexpr auto kTrayMayTake = 10s;

// Until people move them: the island at the top centre, the others down the right edge.
QPoint firstPlace(WindowKind kind) {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  switch (kind) {
    case WindowKind::kIsland:
      return {room.center().x(), room.top() - 16};
    case WindowKind::kMedium:
      return {room.right() - 390, room.top()};
    case WindowKind::kSmall:
      return {room.right() - 210, room.top() + 170};
    case WindowKind::kLockScreen:
      return {room.right() - 423, room.top() + 340};
  }
  return room.topLeft();
}

}  // namespace

Desk::Desk(const ContainerModel::Options& options, const DrawingContext& drawing,
           Preferences& preferences, QObject* parent)
    : QObject(parent),
      preferences_(preferences),
      now_(options.now),
      model_(options),
      small_(WindowKind::kSmall, drawing),
      medium_(WindowKind::kMedium, drawing),
      banner_(drawing),
      island_(drawing) {
  for (CardWindow* window : windows_) connectWindow(*window);
  connectMenu(menu_);
  connectMenu(tray_.menu());
  connect(&tray_, &Tray::activated, this, &Desk::raise);
  connect(&model_, &ContainerModel::entryLoaded, this, &Desk::showEntry);
  connect(&model_, &ContainerModel::liveLoaded, this, &Desk::showLive);
  connect(&model_, &ContainerModel::logLoaded, this, &Desk::showLog);
  connect(&headlineTick_, &QTimer::timeout, this, &Desk::showHeadline);
  headlineTick_.start(kHeadlineTick);
  QTimer::singleShot(kTrayMayTake, this, &Desk::tellIfTrayIsMissing);
  showMenus();
  model_.reload();
}

void Desk::setColorScheme(ColorScheme scheme) {
  for (CardWindow* window : windows_) window->setColorScheme(scheme);
  model_.setColorScheme(scheme);
}

void Desk::raise() {
  if (!visibleWindow()) showWindow(WindowKind::kMedium, true);
  for (CardWindow* window : windows_) {
    if (!window->isVisible()) continue;
    window->raise();
    window->activateWindow();
  }
}

void Desk::run(const QStringList& arguments) {
  model_.run(arguments, [this](const QString& failure) {
    if (!failure.isEmpty()) say(failure);
  });
}

void Desk::say(const QString& message) {
  if (CardWindow* window = visibleWindow()) {
    window->say(message);
  } else {
    tray_.say(message);
  }
}

CardWindow& Desk::window(WindowKind kind) {
  return **std::find_if(windows_.begin(), windows_.end(),
                        [kind](const CardWindow* window) { return window->kind() == kind; });
}

void Desk::connectWindow(CardWindow& window) {
  const WindowKind kind = window.kind();
  window.setOnTop(preferences_.isOnTop());
  window.placeAt(preferences_.position(kind).value_or(firstPlace(kind)));
  window.setWanted(preferences_.isWanted(kind));
  connect(&window, &CardWindow::intentAsked, this,
          [this, &window](const IntentCall& call) { runIntent(window, call); });
  connect(&window, &CardWindow::linkAsked, this,
          [this, &window](const QString& destination) { openLink(window, destination); });
  connect(&window, &CardWindow::menuAsked, this, [this](QPoint at) { menu_.popup(at); });
  connect(&window, &CardWindow::moved, this,
          [this, kind](QPoint anchor) { preferences_.setPosition(kind, anchor); });
  connect(&window, &CardWindow::dismissed, this, [this, kind] { showWindow(kind, false); });
}

void Desk::connectMenu(HostMenu& menu) {
  connect(&menu, &HostMenu::raiseAsked, this, &Desk::raise);
  connect(&menu, &HostMenu::runAsked, this, &Desk::run);
  connect(&menu, &HostMenu::windowToggled, this, &Desk::showWindow);
  connect(&menu, &HostMenu::onTopToggled, this, [this](bool onTop) {
    preferences_.setOnTop(onTop);
    for (CardWindow* window : windows_) window->setOnTop(onTop);
    showMenus();
  });
  connect(&menu, &HostMenu::startAtLoginToggled, this, [this](bool wanted) {
    if (!setStartsAtLogin(wanted)) say(translate("The start at login could not be changed"));
    showMenus();
  });
  connect(&menu, &HostMenu::folderAsked, this, &Desk::folderAsked);
  connect(&menu, &HostMenu::quitAsked, this, &Desk::quitAsked);
}

void Desk::runIntent(CardWindow& window, const IntentCall& call) {
  QStringList arguments{u"intent"_s, call.name, call.activityId, call.operation};
  const bool isResume = call.name.isEmpty() && call.operation == "resume"_L1;
  if (isResume) arguments = QStringList{u"resume"_s, call.activityId};
  if (call.name.isEmpty() && call.operation == "dismiss"_L1)
    arguments = QStringList{u"live"_s, u"end"_s, call.activityId};
  const auto done = [this, &window, isResume, guid = call.activityId](const QString& failure) {
    window.endIntent(failure);
    if (isResume && failure.isEmpty()) renewLiveOf(guid);
  };
  if (model_.run(arguments, done)) window.beginIntent();
}

// What a Live Activity counts from is out of date once its activity was paused.
void Desk::renewLiveOf(const QString& guid) {
  for (const QJsonValue& presentation : shownLive_)
    if (presentation["contentState"_L1]["guid"_L1] == guid)
      model_.runBeside({u"live"_s, u"end"_s, presentation["id"_L1].toString()});
  model_.runBeside({u"live"_s, u"start"_s, u"--activity"_s, guid});
}

void Desk::openLink(CardWindow& window, const QString& destination) {
  brevant::openLink(destination, &window, [&window](const QString& failure) {
    if (!failure.isEmpty()) window.say(failure);
  });
}

void Desk::showWindow(WindowKind kind, bool wanted) {
  preferences_.setWanted(kind, wanted);
  window(kind).setWanted(wanted);
  showMenus();
}

void Desk::showEntry() {
  shownOthers_ = shownEntry()[kOthers].toInt();
  for (WidgetWindow* widget : {&small_, &medium_}) {
    if (model_.isEntryOfLog()) {
      widget->showEntry(shownEntry(), model_.entryTrouble());
    } else {
      widget->showPlaceholder(model_.entry(), model_.entryTrouble());
    }
  }
  const bool runs = model_.isEntryOfLog() && !model_.entry()["name"_L1].toString().isEmpty();
  tray_.setImage(runs ? model_.entry()["icon"_L1].toObject() : QJsonObject());
  showHeadline();
}

// The timeline tells of one activity; how many more run the status knows.
QJsonObject Desk::shownEntry() const {
  QJsonObject entry = model_.entry();
  entry[kOthers] = std::max(0, static_cast<int>(model_.running().size()) - 1);
  return entry;
}

void Desk::showLog() {
  if (model_.isEntryOfLog() && shownEntry()[kOthers] != shownOthers_) showEntry();
  if (liveWithHalts() != shownLive_) showLive();
  showMenus();
}

void Desk::showLive() {
  shownLive_ = liveWithHalts();
  banner_.showActivities(shownLive_, model_.liveTrouble());
  island_.showActivities(shownLive_, model_.liveTrouble());
}

// A Live Activity may outlive the running of its activity, which only the log knows.
QJsonArray Desk::liveWithHalts() {
  const auto isAmong = [](const QJsonArray& activities, const QJsonValue& guid) {
    return std::any_of(activities.begin(), activities.end(),
                       [&](const QJsonValue& each) { return each["guid"_L1] == guid; });
  };
  QJsonArray live = model_.liveActivities();
  if (!model_.isLogKnown()) return live;
  for (QJsonValueRef presentation : live) {
    QJsonObject told = presentation.toObject();
    const QString id = told["id"_L1].toString();
    const QJsonValue guid = told["contentState"_L1]["guid"_L1];
    if (isAmong(model_.running(), guid)) {
      lastSeenRunning_.insert(id, 0);
      continue;
    }
    const bool isPaused = isAmong(model_.paused(), guid);
    QJsonObject halt{{u"state"_s, isPaused ? u"paused"_s : u"stopped"_s}};
    if (const auto seen = lastSeenRunning_.find(id); seen != lastSeenRunning_.end()) {
      if (*seen == 0) *seen = now_();
      halt[u"at"_s] = *seen;
    }
    told[kHalt] = halt;
    presentation = told;
  }
  return live;
}

void Desk::showMenus() {
  MenuState state{headline(), model_.running(),       model_.paused(),         model_.categories(),
                  {},         preferences_.isOnTop(), brevant::startsAtLogin()};
  for (const CardWindow* window : windows_)
    if (window->isWanted()) state.wanted.push_back(window->kind());
  menu_.show(state);
  tray_.menu().show(state);
}

void Desk::showHeadline() {
  menu_.setHeadline(headline());
  tray_.setHeadline(headline());
}

void Desk::tellIfTrayIsMissing() {
  if (Tray::isAvailable() || !preferences_.tellOnceThatTrayIsMissing()) return;
  const QString message =
      translate("This desktop has no tray. A right click on a widget has the same menu.");
  std::fprintf(stderr, "brevant-desktop: %s\n", qPrintable(message));
  if (!visibleWindow()) raise();
  say(message);
}

CardWindow* Desk::visibleWindow() {
  CardWindow* largest = nullptr;
  const auto areaOf = [](const CardWindow& window) { return window.width() * window.height(); };
  for (CardWindow* window : windows_)
    if (window->isVisible() && (!largest || areaOf(*window) > areaOf(*largest))) largest = window;
  return largest;
}

QString Desk::headline() const {
  if (!model_.entryTrouble().isEmpty()) return model_.entryTrouble();
  return model_.isEntryOfLog() ? spokenTotal(shownEntry(), now_()) : u"Brevant"_s;
}

}  // namespace brevant
