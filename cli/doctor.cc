// SPDX-License-Identifier: MIT
#include "cli/doctor.h"

#include <set>
#include <unistd.h>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/doctor_places.h"
#include "cli/words.h"
#include "manager/widget_manager.h"
#include "platform/bundle.h"
#include "platform/container_path.h"
#include "platform/linux/durable_file.h"
#include "platform/linux/notification_service.h"
#include "platform/linux/property_list.h"
#include "platform/linux/shared_settings.h"
#include "store/database_check.h"

namespace brevant {
namespace {

using State = Finding::State;

constexpr const char* kContainer = marked("container");
constexpr const char* kDatabase = marked("database");
constexpr const char* kSettings = marked("settings");
constexpr const char* kIcons = marked("icons");
constexpr const char* kResources = marked("resources");
constexpr const char* kNotifications = marked("notifications");

std::string joined(const std::set<std::string>& names) {
  constexpr std::size_t kMost = 5;
  std::string text;
  std::size_t count = 0;
  for (const std::string& name : names) {
    if (++count > kMost) return text + ", …";
    text += (count > 1 ? ", " : "") + name;
  }
  return text;
}

Finding checkContainer(const Context& context) {
  const std::string directory = containerDirectory(context.platform.files).value_or("");
  if (const auto trouble = missingContainer(context.platform.files)) {
    return {kContainer, State::kProblem, *trouble,
            tr("name it with --container or BREVANT_CONTAINER, or make one to try: brevant sample "
               "DIR")};
  }
  if (access(directory.c_str(), R_OK | W_OK | X_OK) != 0) {
    return {kContainer, State::kProblem, tr("%1 cannot be written", directory),
            tr("give yourself the permission to read and write the folder")};
  }
  const std::string looked = containerPath(context.platform.files, kDatabaseFile).value_or("");
  if (looked.find('%') != std::string::npos) {
    return {kContainer, State::kProblem,
            tr("the container's path has characters that a URL spells as percent escapes; the "
               "tracker's rule keeps the escapes, so the database is looked for at %1, where "
               "nobody puts it",
               looked),
            tr("move the container to a path of letters, digits and -._~ only")};
  }
  return {kContainer, State::kGood, directory, ""};
}

Finding checkDatabase(const Context& context) {
  if (const std::optional<std::string> trouble = missingDatabase(context.platform.files)) {
    return {kDatabase, State::kProblem, *trouble,
            tr("let the tracker make its database there, or try brevant sample DIR")};
  }
  const std::string path = containerPath(context.platform.files, kDatabaseFile).value_or("");
  const DatabaseReport report = brevant::checkDatabase(path);
  if (report.damage) {
    return {kDatabase, State::kProblem, tr("it is damaged: %1", *report.damage),
            tr("restore it from a backup, or recover it with sqlite3's .recover")};
  }
  if (report.unreadable) {
    return {kDatabase, State::kProblem, tr("it cannot be read: %1", *report.unreadable),
            tr("close what keeps it locked; check that it is yours to read")};
  }
  if (!report.missing.empty()) {
    return {kDatabase, State::kProblem,
            tr("it lacks %1", joined({report.missing.begin(), report.missing.end()})),
            tr("let the tracker's current version open it once")};
  }
  if (access(path.c_str(), W_OK) != 0) {
    return {kDatabase, State::kProblem, tr("it can be read but not written"),
            tr("give yourself the permission to write it")};
  }
  if (!report.slow.empty()) {
    std::string statements;
    for (const std::string& each : report.slow) statements += each + "; ";
    return {
        kDatabase, State::kWarning,
        tr("sound, but without an index each answer reads a whole table (with 130,000 activities "
           "52 ms rather than 1.9 ms)"),
        tr("make it with sqlite3 %1: %2", path, statements)};
  }
  return {kDatabase, State::kGood, tr("sound, journal mode %1", report.journalMode), ""};
}

Finding checkSettings(const Context& context) {
  const std::string path = settingsPath(containerDirectory(context.platform.files).value_or(""));
  if (!context.platform.files.fileExists(path)) {
    return {kSettings, State::kGood, tr("none yet, so every setting has its default"), ""};
  }
  const std::optional<std::string> bytes = readFile(path, kMaxPropertyListSize);
  if (!bytes || !parsePropertyList(*bytes)) {
    return {
        kSettings, State::kProblem, tr("%1 is no property list that can be read", path),
        tr("restore it, or move it away: until then settings read as empty and are not written")};
  }
  return {kSettings, State::kGood, path, ""};
}

Finding checkIcons(Context& context) {
  std::set<std::string> without;
  const auto manager = context.openManager();
  const TypeList types = manager->findAllTypes();
  if (missingDatabase(context.platform.files) || context.store.failure()) {
    return {kIcons, State::kWarning, tr("not checked, as the categories could not be read"),
            tr("see what is said of the database")};
  }
  for (const TypeRef& type : types) {
    if (!manager->imageForType(*type)) without.insert(type->name.value_or(tr("(no name)")));
  }
  if (without.empty()) return {kIcons, State::kGood, tr("every category has one"), ""};
  return {
      kIcons, State::kProblem, tr("none for %1", joined(without)),
      tr("a widget cannot show these: put the pictures into custom_images, or choose other icons")};
}

Finding checkResources(const Context& context) {
  std::set<std::string> names{"cat_111@2x.png", "pause_widget@2x.png", "pause_widget_light@2x.png",
                              "stop_widget@2x.png"};
  constexpr int kCategoryIcons = 24;
  for (int icon = 1; icon <= kCategoryIcons; ++icon) {
    names.insert("cat_" + std::to_string(icon) + ".png");
  }
  std::set<std::string> missing;
  for (const std::string& name : names) {
    if (!context.platform.bundle.imageNamed(name)) missing.insert(name);
  }
  constexpr const char* kText = "complication.no_running";  // a key, which no language shows
  if (context.platform.bundle.localizedString(kText) == kText) missing.insert(tr("the texts"));
  if (missing.empty()) return {kResources, State::kGood, resourcesBesideProgram(), ""};
  return {kResources, State::kProblem,
          tr("missing in %1: %2", resourcesBesideProgram(), joined(missing)),
          tr("install the program together with its share folder")};
}

Finding checkNotifications(const Context& context) {
  if (context.notifications == nullptr) {
    return {kNotifications, State::kProblem, tr("the program that shows them is not installed"),
            tr("install brevant-session in libexec, beside the folder of brevant")};
  }
  if (const std::optional<std::string> name = context.notifications->name()) {
    return {kNotifications, State::kGood, tr("shown by %1", *name), ""};
  }
  return {kNotifications, State::kWarning, tr("no notification service is running in this session"),
          tr("reminders wait until there is one; any desktop's will do")};
}

}  // namespace

std::string stateName(State state) {
  switch (state) {
    case State::kGood:
      return marked("ok");
    case State::kWarning:
      return marked("warning");
    case State::kProblem:
      return marked("problem");
  }
  return "";
}

std::vector<Finding> examine(Context& context) {
  return {checkContainer(context), checkPlace(context),        checkDatabase(context),
          checkSettings(context),  checkLocks(context),        checkLiveActivities(context),
          checkReminders(context), checkIcons(context),        checkIconCache(context),
          checkResources(context), checkNotifications(context)};
}

}  // namespace brevant
