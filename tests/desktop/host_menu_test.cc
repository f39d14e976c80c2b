// SPDX-License-Identifier: MIT
#include "desktop/host_menu.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

QJsonArray list(const char* json) {
  return QJsonDocument::fromJson(json).array();
}

// "Start>Sport>Swim" for every entry that can be chosen and has no menu behind it.
QStringList pathsOf(const QMenu& menu, const QString& above = {}) {
  QStringList paths;
  for (const QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    const QString path = above + action->text();
    if (action->menu()) {
      paths << pathsOf(*action->menu(), path + u'>');
    } else if (action->isEnabled()) {
      paths << path;
    }
  }
  return paths;
}

QAction* find(const QMenu& menu, const QString& text) {
  for (QAction* action : menu.findChildren<QAction*>())
    if (action->text() == text) return action;
  return nullptr;
}

TEST(HostMenu, OffersWhatCanBeDone) {
  HostMenu menu;
  MenuState state;
  state.headline = u"Tea & cake, 5 minutes"_s;
  state.running = list(R"([{"guid":"R","name":"Tea & cake"}])");
  state.paused = list(R"([{"guid":"P","name":"Work"},{"guid":"Q","name":"Sleep"}])");
  // A category twice removed, an orphan, a cycle and an empty group, which nobody can start.
  state.categories = list(R"([
    {"guid":"g","name":"Sport","parentGuid":null,"isGroup":true,"color":255},
    {"guid":"h","name":"Water","parentGuid":"g","isGroup":true,"color":255},
    {"guid":"s","name":"Swim","parentGuid":"h","isGroup":false,"color":255},
    {"guid":"r","name":"Read","parentGuid":"","isGroup":false,"color":255},
    {"guid":"o","name":"Orphan","parentGuid":"?","isGroup":false,"color":255},
    {"guid":"c","name":"Cycle","parentGuid":"c","isGroup":true,"color":255},
    {"guid":"e","name":"Empty","parentGuid":null,"isGroup":true,"color":255}])");
  state.wanted = {WindowKind::kIsland};
  menu.show(state);

  EXPECT_EQ(pathsOf(menu).join(u", "_s).toStdString(),
            "Tea && cake, 5 minutes, Pause, Stop, Resume Work, Resume Sleep, "
            "Start>Sport>Water>Swim, Start>Read, Small widget, Medium widget, "
            "Live Activity banner, Dynamic Island, Always on top, Start at login, Choose a "
            "folder…, Quit");
  EXPECT_TRUE(find(menu, u"Dynamic Island"_s)->isChecked());
  EXPECT_FALSE(find(menu, u"Small widget"_s)->isChecked());

  QStringList run;
  QObject::connect(&menu, &HostMenu::runAsked,
                   [&](const QStringList& arguments) { run << arguments.join(u' '); });
  for (const auto& text : {u"Pause"_s, u"Stop"_s, u"Resume Sleep"_s, u"Swim"_s})
    find(menu, text)->trigger();
  EXPECT_EQ(run, QStringList({u"pause R"_s, u"stop R"_s, u"resume Q"_s, u"start s"_s}));
}

TEST(HostMenu, HoldsEachCategoryOnceAndNoMoreThanAScreenCan) {
  HostMenu menu;
  MenuState state;
  QJsonArray& groups = state.categories;
  for (int i = 0; i < 40; ++i)  // each is in each other
    groups << QJsonObject{{u"guid"_s, u"g"_s},
                          {u"name"_s, u"G"_s},
                          {u"isGroup"_s, true},
                          {u"parentGuid"_s, i == 0 ? u""_s : u"g"_s}};
  for (int i = 0; i < 2000; ++i)
    groups << QJsonObject{
        {u"guid"_s, u"c"_s}, {u"name"_s, u"C"_s}, {u"isGroup"_s, false}, {u"parentGuid"_s, u"g"_s}};
  for (int i = 0; i < 500; ++i) state.paused << QJsonObject{{u"name"_s, u"P"_s}};
  menu.show(state);
  EXPECT_EQ(pathsOf(menu).filter(u"Start>"_s).size(), 1000 - 40);
  EXPECT_EQ(pathsOf(menu).filter(u"Resume"_s).size(), 20);
}

TEST(HostMenu, NamesTheActivitiesWhereSeveralRun) {
  HostMenu menu;
  MenuState state;
  state.running = list(R"([{"guid":"1","name":"A"},{"guid":"2","name":"B"}])");
  menu.show(state);
  EXPECT_EQ(pathsOf(menu).mid(1, 4),
            QStringList({u"Pause A"_s, u"Stop A"_s, u"Pause B"_s, u"Stop B"_s}));
}

}  // namespace
}  // namespace brevant
