// SPDX-License-Identifier: MIT
#include "cli/doctor.h"

#include <set>
#include <unistd.h>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/doctor_places.h"
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
    return {
        "container", State::kProblem, *trouble,
        "name it with --container or BREVANT_CONTAINER, or make one to try: brevant sample DIR"};
  }
  if (access(directory.c_str(), R_OK | W_OK | X_OK) != 0) {
    return {"container", State::kProblem, directory + " cannot be written",
            "give yourself the permission to read and write the folder"};
  }
  const std::string looked = containerPath(context.platform.files, kDatabaseFile).value_or("");
  if (looked.find('%') != std::string::npos) {
    return {"container", State::kProblem,
            "the container's path has characters that a URL spells as percent escapes; the "
            "tracker's rule keeps the escapes, so the database is looked for at " +
                looked + ", where nobody puts it",
            "move the container to a path of letters, digits and -._~ only"};
  }
  return {"container", State::kGood, directory, ""};
}

Finding checkDatabase(const Context& context) {
  if (const std::optional<std::string> trouble = missingDatabase(context.platform.files)) {
    return {"database", State::kProblem, *trouble,
            "let the tracker make its database there, or try brevant sample DIR"};
  }
  const std::string path = containerPath(context.platform.files, kDatabaseFile).value_or("");
  const DatabaseReport report = brevant::checkDatabase(path);
  if (report.damage) {
    return {"database", State::kProblem, "it is damaged: " + *report.damage,
            "restore it from a backup, or recover it with sqlite3's .recover"};
  }
  if (report.unreadable) {
    return {"database", State::kProblem, "it cannot be read: " + *report.unreadable,
            "close what keeps it locked; check that it is yours to read"};
  }
  if (!report.missing.empty()) {
    return {"database", State::kProblem,
            "it lacks " + joined({report.missing.begin(), report.missing.end()}),
            "let the tracker's current version open it once"};
  }
  if (access(path.c_str(), W_OK) != 0) {
    return {"database", State::kProblem, "it can be read but not written",
            "give yourself the permission to write it"};
  }
  if (!report.slow.empty()) {
    std::string statements;
    for (const std::string& each : report.slow) statements += each + "; ";
    return {"database", State::kWarning,
            "sound, but without an index each answer reads a whole table (with 130,000 activities "
            "52 ms rather than 1.9 ms)",
            "make it with sqlite3 " + path + ": " + statements};
  }
  return {"database", State::kGood, "sound, journal mode " + report.journalMode, ""};
}

Finding checkSettings(const Context& context) {
  const std::string path = settingsPath(containerDirectory(context.platform.files).value_or(""));
  if (!context.platform.files.fileExists(path)) {
    return {"settings", State::kGood, "none yet, so every setting has its default", ""};
  }
  const std::optional<std::string> bytes = readFile(path, kMaxPropertyListSize);
  if (!bytes || !parsePropertyList(*bytes)) {
    return {"settings", State::kProblem, path + " is no property list that can be read",
            "restore it, or move it away: until then settings read as empty and are not written"};
  }
  return {"settings", State::kGood, path, ""};
}

Finding checkIcons(Context& context) {
  std::set<std::string> without;
  const auto manager = context.openManager();
  const TypeList types = manager->findAllTypes();
  if (missingDatabase(context.platform.files) || context.store.failure()) {
    return {"icons", State::kWarning, "not checked, as the categories could not be read",
            "see what is said of the database"};
  }
  for (const TypeRef& type : types) {
    if (!manager->imageForType(*type)) without.insert(type->name.value_or("(no name)"));
  }
  if (without.empty()) return {"icons", State::kGood, "every category has one", ""};
  return {"icons", State::kProblem, "none for " + joined(without),
          "a widget cannot show these: put the pictures into custom_images, or choose other icons"};
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
  if (context.platform.bundle.localizedString(kText) == kText) missing.insert("the texts");
  if (missing.empty()) return {"resources", State::kGood, resourcesBesideProgram(), ""};
  return {"resources", State::kProblem,
          "missing in " + resourcesBesideProgram() + ": " + joined(missing),
          "install the program together with its share folder"};
}

Finding checkNotifications(const Context& context) {
  if (context.notifications == nullptr) {
    return {"notifications", State::kProblem, "the program that shows them is not installed",
            "install brevant-session in libexec, beside the folder of brevant"};
  }
  if (const std::optional<std::string> name = context.notifications->name()) {
    return {"notifications", State::kGood, "shown by " + *name, ""};
  }
  return {"notifications", State::kWarning, "no notification service is running in this session",
          "reminders wait until there is one; any desktop's will do"};
}

}  // namespace

std::string stateName(State state) {
  switch (state) {
    case State::kGood:
      return "ok";
    case State::kWarning:
      return "warning";
    case State::kProblem:
      return "problem";
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
