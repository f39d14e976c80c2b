// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "manager/pin_disk_cache.h"
#include "platform/calendar.h"
#include "platform/image.h"
#include "platform/platform.h"
#include "store/widget_dao.h"

namespace brevant {

struct NotificationContent;
struct NotificationRequest;
struct NotifySettings;
struct SaveOutcome;

using ReminderCompletion = std::function<void(const SaveOutcome&)>;

// The facade through which the widgets, the Live Activity and the intents reach the shared store:
// queries over activities and categories, the operations on activities, icons and reminders. Keeps
// nothing but its data-access object, which every query asks anew. Opened per use; the database
// connection lives as long as it does. One thread at a time.
//
// Nothing is reported: failed queries are empty, failed writes leave the database as it was. The
// listener hears what became of them.
class WidgetManager {
 public:
  // `path` by `containerPath`; absent when there is no container.
  WidgetManager(const Platform& platform, const std::optional<std::string>& path,
                StoreListener listener = {});
  ~WidgetManager();
  WidgetManager(const WidgetManager&) = delete;
  WidgetManager& operator=(const WidgetManager&) = delete;

  // The manager of the shared database.
  static std::unique_ptr<WidgetManager> open(const Platform& platform, StoreListener listener = {});

  // --- Queries ---

  ActivityList findActivities() const;
  ActivityList findRunningActivities() const;

  // Flat, with the groups' children rebuilt. An entry whose parent is missing or no group is
  // nobody's child.
  TypeList findAllTypes() const;
  TypeList findRoot() const;

  // Depth-first, parents first; sets the children's nesting level. Circular parents end where they
  // would repeat.
  static TypeList flatten(const TypeList& types);

  TypeList findCategoriesOnly() const;
  TypeRef findById(std::string_view guid) const;
  TypeRef findByName(std::string_view name) const;  // ignores case
  [[nodiscard]] std::string generateGUID() const;

  // --- Operations ---

  // Calls `work` inside one exclusive transaction: what it reads is what its operations change,
  // whoever else writes, and all of them are stored together or none is. Without the lock `work` is
  // not called. The main application hears of the changes when the lock is given back.
  void inOneTransaction(const std::function<void()>& work);

  void startActivity(const std::string& categoryGuid);
  void stopActivity(WidgetActivity& activity);
  void pauseActivity(const WidgetActivity& activity);   // works on a copy
  void resumeActivity(const WidgetActivity& activity);  // works on a copy
  [[nodiscard]] std::uint64_t minDuration() const;      // seconds
  void sendUpdateToApp();
  [[nodiscard]] bool isiOSAppOnMac() const;

  // --- Icons; null where there is none ---

  ImageRef imageForType(const WidgetType& type) const;
  ImageRef imageForGuid(const std::optional<std::string>& guid, std::uint64_t color) const;
  [[nodiscard]] std::optional<std::string> pathForCustomImageGuid(std::string_view name) const;
  [[nodiscard]] std::optional<std::string> customImagesPath() const;

  // --- Reminders ---

  [[nodiscard]] NotifySettings notifySettings() const;
  std::vector<Date> notifyHours() const;  // at most 20, earliest first
  NotificationContent reminderContent() const;

  // What is pending and what runs is asked when the platform answers, which may be on another
  // thread and after this manager is gone. When the database cannot be read then, what is pending
  // stays. `done` hears what became of the pending requests.
  void scheduleRemindMeNotifications(ReminderCompletion done = {});
  void cancelRemindMeNotifications(ReminderCompletion done = {});
  [[nodiscard]] DateComponents weekdayTimeComponentsForDate(Date date) const;
  [[nodiscard]] Date addDayTo(Date date) const;
  [[nodiscard]] bool iOS10() const;

  std::unique_ptr<WidgetDAO> dao;

 private:
  // A stretch that is too short is dropped; without an earlier one nothing of the activity is left.
  enum class Closing { kClosed, kNothingLeft };
  Closing closeRunningStretch(WidgetActivity& activity, std::uint64_t now);
  void finish(WidgetActivity& activity, std::int32_t state);

  [[nodiscard]] std::vector<NotificationRequest> reminders() const;
  [[nodiscard]] ImageRef customIcon(const std::string& name) const;

  Platform platform_;
  std::optional<std::string> path_;
  StoreListener listener_;
  PINDiskCache iconCache_;
  std::optional<int> heldUpdates_;  // signals to the main application that wait for the lock
};

}  // namespace brevant
