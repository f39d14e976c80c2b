// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <functional>

#include "desktop/actions.h"
#include "desktop/brevant_client.h"
#include "desktop/container_watcher.h"
#include "desktop/due_clock.h"
#include "desktop/feed.h"

namespace brevant {

// Everything that is known of one container and everything that can be done with it, without any
// window: what `brevant` last answered, asked again when the container changes, after an action, at
// the day's change and every quarter of an hour. A question that fails leaves its last good answer.
class ContainerModel : public QObject {
  Q_OBJECT
 public:
  struct Options {
    BrevantClient::Options client;
    std::function<double()> now;  // seconds since 1970
    RetryPauses retry{std::chrono::seconds(1), std::chrono::minutes(5)};
    std::chrono::milliseconds settle{150};
  };

  explicit ContainerModel(const Options& options, QObject* parent = nullptr);

  void reload();
  void setColorScheme(ColorScheme scheme);

  // Runs `brevant` with the arguments, then reloads. Ignored while another action is under way.
  bool run(const QStringList& arguments, Actions::Done done) {
    return actions_.run(arguments, std::move(done));
  }

  // The same for what follows from another action: at once, and whatever comes of it.
  void runBeside(const QStringList& arguments) {
    client_.perform(arguments, this, [](const Answer&) {});
  }

  // The entry of the timeline to show; the placeholder while there never was one; empty when not
  // even that can be had.
  [[nodiscard]] QJsonObject entry() const;
  // Whether entry() is of the log, and not of a placeholder that only looks like it.
  [[nodiscard]] bool isEntryOfLog() const { return timeline_.lastGood().has_value(); }
  [[nodiscard]] const QString& entryTrouble() const { return timeline_.trouble(); }
  // The presentations of the running Live Activities.
  [[nodiscard]] QJsonArray liveActivities() const;
  [[nodiscard]] const QString& liveTrouble() const { return live_.trouble(); }
  // Whether what runs and is paused is known, and not only remembered.
  [[nodiscard]] bool isLogKnown() const {
    return status_.lastGood().has_value() && status_.trouble().isEmpty();
  }
  // The activities that run or are paused, and the categories to start.
  [[nodiscard]] QJsonArray running() const;
  [[nodiscard]] QJsonArray paused() const;
  [[nodiscard]] QJsonArray categories() const;

 Q_SIGNALS:
  void entryLoaded();
  void liveLoaded();
  void logLoaded();

 private:
  [[nodiscard]] Feed::Fetch question(const QStringList& arguments);
  void takeTimeline();
  void loadPlaceholder();

  BrevantClient client_;
  Actions actions_;
  ContainerWatcher watcher_;
  DueClock dueClock_;
  Feed timeline_, status_, categories_, live_;
  QJsonObject placeholder_;
};

}  // namespace brevant
