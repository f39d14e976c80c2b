// SPDX-License-Identifier: MIT
#include "desktop/container_model.h"

#include <QFileInfo>
#include <utility>

#include "desktop/live_fetch.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isEntry(const QJsonValue& entry) {
  const QJsonValue views = entry["views"_L1];
  return views["systemSmall"_L1].isObject() && views["systemMedium"_L1].isObject();
}

QString unusable() {
  return translate("brevant answered something that cannot be used");
}

// Without one every answer is that nothing is there, which is not what people should read.
QString troubleOfLog(const QString& container) {
  const QFileInfo log(container + u"/database.sqlite"_s);
  return log.exists() ? QString() : translate("%1 is missing").arg(log.filePath());
}

QString checkTimeline(const QJsonValue& timeline) {
  if (timeline.isNull()) return translate("brevant has nothing to show for the running activity");
  return isEntry(timeline["entries"_L1][0]) ? QString() : unusable();
}

QString checkStatus(const QJsonValue& status) {
  return status["running"_L1].isArray() && status["paused"_L1].isArray() ? QString() : unusable();
}

QString checkCategories(const QJsonValue& categories) {
  return categories.isArray() ? QString() : unusable();
}

// What is wrong with the log, or else with the answer.
Feed::Check checkOfLog(const QString& container, Feed::Check check) {
  return [container, check = std::move(check)](const QJsonValue& answer) {
    const QString trouble = troubleOfLog(container);
    return trouble.isEmpty() ? check(answer) : trouble;
  };
}

QString checkLive(const QJsonValue& presentations) {
  for (const QJsonValue& presentation : presentations.toArray())
    if (!presentation["lockScreen"_L1].isObject() || !presentation["dynamicIsland"_L1].isObject())
      return unusable();
  return {};
}

}  // namespace

ContainerModel::ContainerModel(const Options& options, QObject* parent)
    : QObject(parent),
      client_(options.client),
      actions_(client_),
      watcher_(options.client.container, options.settle),
      dueClock_(options.now),
      timeline_(question({u"timeline"_s}), checkOfLog(options.client.container, checkTimeline),
                options.retry),
      status_(question({u"status"_s}), checkOfLog(options.client.container, checkStatus),
              options.retry),
      categories_(question({u"categories"_s}),
                  checkOfLog(options.client.container, checkCategories), options.retry),
      live_(liveActivitiesFetch(client_), checkLive, options.retry) {
  connect(&watcher_, &ContainerWatcher::changed, this, [this] {
    if (!actions_.isRunning()) reload();  // after an action all is read anyway
  });
  connect(&dueClock_, &DueClock::due, this, &ContainerModel::reload);
  connect(&actions_, &Actions::ended, this, &ContainerModel::reload);
  connect(&timeline_, &Feed::loaded, this, &ContainerModel::takeTimeline);
  connect(&live_, &Feed::loaded, this, &ContainerModel::liveLoaded);
  connect(&status_, &Feed::loaded, this, &ContainerModel::logLoaded);
  connect(&categories_, &Feed::loaded, this, &ContainerModel::logLoaded);
}

void ContainerModel::reload() {
  watcher_.markSeen();
  dueClock_.markLoaded();
  timeline_.reload();
  live_.reload();
  status_.reload();
  categories_.reload();
}

void ContainerModel::setColorScheme(ColorScheme scheme) {
  client_.setColorScheme(scheme);
  placeholder_ = {};
  reload();
}

QJsonObject ContainerModel::entry() const {
  if (!timeline_.lastGood()) return placeholder_;
  return (*timeline_.lastGood())["entries"_L1][0].toObject();
}

QJsonArray ContainerModel::liveActivities() const {
  return live_.lastGood().value_or(QJsonValue()).toArray();
}

QJsonArray ContainerModel::running() const {
  return status_.lastGood().value_or(QJsonValue())["running"_L1].toArray();
}

QJsonArray ContainerModel::paused() const {
  return status_.lastGood().value_or(QJsonValue())["paused"_L1].toArray();
}

QJsonArray ContainerModel::categories() const {
  return categories_.lastGood().value_or(QJsonValue()).toArray();
}

Feed::Fetch ContainerModel::question(const QStringList& arguments) {
  return [this, arguments](QObject* receiver, BrevantClient::Done done) {
    client_.ask(arguments, receiver, std::move(done));
  };
}

void ContainerModel::takeTimeline() {
  if (!timeline_.lastGood() && placeholder_.isEmpty()) loadPlaceholder();
  if (!timeline_.isLoading()) actions_.settle();
  Q_EMIT entryLoaded();
}

void ContainerModel::loadPlaceholder() {
  client_.ask({u"placeholder"_s}, this, [this](const Answer& answer) {
    if (answer.outcome != Answer::Outcome::kDone || !isEntry(answer.value)) return;
    placeholder_ = answer.value.toObject();
    Q_EMIT entryLoaded();
  });
}

}  // namespace brevant
