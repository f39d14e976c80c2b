// SPDX-License-Identifier: MIT
#include "cli/doctor_places.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <sys/vfs.h>
#include <unistd.h>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/words.h"
#include "platform/linux/durable_file.h"
#include "platform/linux/file_lock.h"
#include "platform/linux/shared_settings.h"
#include "platform/live_activities.h"
#include "platform/notifications.h"

namespace brevant {
namespace {

namespace fs = std::filesystem;
using State = Finding::State;

constexpr const char* kMoveAway =
    marked("restore the file, or move it away: it is never overwritten");
constexpr const char* kLiveActivitiesCheck = marked("live activities");
constexpr const char* kReminders = marked("reminders");
constexpr const char* kLocks = marked("locks");
constexpr const char* kPlace = marked("place");

// Where locks between machines do not hold, or not always.
bool isOnNetwork(const std::string& directory) {
  constexpr long kNames[] = {0x6969, 0x517B, 0xFF534D42, 0xFE534D42, 0x5346414F, 0x00C36400};
  struct statfs status {};
  if (statfs(directory.c_str(), &status) != 0) return false;
  return std::find(std::begin(kNames), std::end(kNames), static_cast<long>(status.f_type)) !=
         std::end(kNames);
}

// What file synchronisers call the other one of two that were changed: "database (conflicted copy
// of …).sqlite", "database.sync-conflict-….sqlite".
bool isConflictCopy(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  return name.starts_with("database") && name.find("conflict") != std::string::npos;
}

std::string conflictCopies(const std::string& directory) {
  std::error_code error;
  std::set<std::string> names;
  for (fs::directory_iterator entry(directory, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (isConflictCopy(entry->path().filename())) names.insert(entry->path().filename());
  }
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

bool canBeWritten(fs::path folder) {
  while (!fileExists(folder) && folder.has_relative_path()) folder = folder.parent_path();
  return access(folder.c_str(), W_OK | X_OK) == 0 && fs::is_directory(folder);
}

}  // namespace

Finding checkLiveActivities(const Context& context) {
  const LiveActivityList list = context.platform.liveActivities.allActivities();
  if (const auto* error = std::get_if<LiveActivityError>(&list)) {
    return {kLiveActivitiesCheck, State::kProblem, error->message, tr(kMoveAway)};
  }
  return {kLiveActivitiesCheck, State::kGood, tr("the registry can be read"), ""};
}

Finding checkReminders(const Context& context) {
  Finding finding{kReminders, State::kGood, "", ""};
  context.platform.notifications.pendingRequests(
      [&](const auto& pending) {
        finding.message =
            trPlural("%1 pending", "%1 pending", pending.size(), std::to_string(pending.size()));
      },
      [&](const SaveOutcome& read) {
        if (!read.isSaved()) finding = {kReminders, State::kProblem, read.why, tr(kMoveAway)};
      });
  return finding;
}

// One that nobody made yet is not made here either.
Finding checkLocks(const Context& context) {
  const std::string container = containerDirectory(context.platform.files).value_or("");
  for (const std::string& path :
       {linkTarget(settingsPath(container)) + ".lock",
        linkTarget(container + "/LiveActivities/activities.json") + ".lock",
        linkTarget(container + "/Notifications/requests.json") + ".lock",
        container + "/Notifications/delivery.lock"}) {
    if (!fileExists(path)) continue;
    const FileLock lock(path);
    if (lock.held()) continue;
    return {kLocks, State::kProblem, lock.problem(),
            lock.isBusy() ? tr("end the program that hangs with it (fuser shows which): until then "
                               "nothing is saved there")
                          : tr("make it an ordinary file of your own, or remove it")};
  }
  return {kLocks, State::kGood, tr("nobody keeps one"), ""};
}

Finding checkPlace(const Context& context) {
  const std::string directory = containerDirectory(context.platform.files).value_or("");
  if (const std::string copies = conflictCopies(directory); !copies.empty()) {
    return {kPlace, State::kWarning, tr("beside the database lies a conflict copy: %1", copies),
            tr("two machines changed the log at once, and each copy lacks what the other has; keep "
               "what you need of both and synchronise no database that is in use")};
  }
  if (isOnNetwork(directory)) {
    return {
        kPlace, State::kWarning, tr("the container is on a network file system"),
        tr("its locks may fail between machines, which can damage a database: keep it on a disk "
           "of this machine")};
  }
  return {kPlace, State::kGood, tr("on a disk of this machine, without conflict copies"), ""};
}

Finding checkIconCache(const Context& context) {
  const std::optional<std::string> caches = context.platform.files.cachesDirectory();
  const std::string folder = caches.value_or("") + "/org.brevant.PINDiskCache.PINDiskCacheShared";
  if (caches && canBeWritten(folder)) return {marked("icon cache"), State::kGood, folder, ""};
  return {marked("icon cache"), State::kWarning,
          caches ? tr("%1 cannot be written", folder) : tr("there is no folder for caches"),
          tr("icons are tinted anew each time: give yourself the permission to write it")};
}

}  // namespace brevant
