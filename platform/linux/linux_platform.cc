// SPDX-License-Identifier: MIT
#include "platform/linux/linux_platform.h"

#include <cstdlib>
#include <filesystem>

#include "platform/linux/bundle.h"
#include "platform/linux/calendar.h"
#include "platform/linux/case_mapping.h"
#include "platform/linux/clock.h"
#include "platform/linux/cloud_database.h"
#include "platform/linux/file_manager.h"
#include "platform/linux/image_codec.h"
#include "platform/linux/json_coder.h"
#include "platform/linux/live_activity_registry.h"
#include "platform/linux/log.h"
#include "platform/linux/notification_store.h"
#include "platform/linux/process_info.h"
#include "platform/linux/random_source.h"
#include "platform/linux/shared_settings.h"
#include "platform/linux/task_queue.h"

namespace brevant {
namespace {

// Without any ".." or link resolved: what the user sees in a message is what the user gave.
std::string absolutePath(const std::string& path) {
  std::error_code error;
  return path.empty() ? path : std::filesystem::absolute(path, error).string();
}

// Where nothing can be read or made: with it each service is unavailable in its own way when there
// is no container.
constexpr const char* kNowhere = "/dev/null/container";

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

struct LinuxPlatform::Services {
  explicit Services(const LinuxPlatformOptions& options)
      : container(absolutePath(options.container)),
        directory(container.empty() ? kNowhere : container),
        clock(makeClock(options.now)),
        files(makeFileManager(container)),
        settings(makeSharedSettings(directory, *clock, *log)),
        bundle(makeBundle(options.resources, *images)),
        process(makeProcessInfo(options.systemVersion, options.isiOSAppOnMac)),
        notifications(makeNotificationStore(directory, *clock)),
        liveActivities(makeLiveActivityRegistry(directory, *clock, *random)),
        cloud(makeCloudDatabase(cloudDirectory(directory), *tasks)) {}

  const std::string container;  // empty when there is none
  const std::string directory;
  const std::unique_ptr<Log> log = makeStderrLog();
  const std::unique_ptr<Clock> clock;
  const std::unique_ptr<Calendar> calendar = makeCalendar();
  const std::unique_ptr<FileManager> files;
  const std::unique_ptr<SharedSettings> settings;
  const std::unique_ptr<ImageCodec> images = makeImageCodec();
  const std::unique_ptr<Bundle> bundle;
  const std::unique_ptr<CaseMapping> caseMapping = makeCaseMapping();
  const std::unique_ptr<Coder> coder = makeJsonCoder();
  const std::unique_ptr<ProcessInfo> process;
  const std::unique_ptr<RandomSource> random = makeRandomSource();
  const std::unique_ptr<UserNotificationCenter> notifications;
  const std::unique_ptr<LiveActivityCenter> liveActivities;
  // Last: its tasks may use every other service until they have ended.
  const std::unique_ptr<TaskQueue> tasks = makeTaskQueue();
  const std::unique_ptr<CloudDatabase> cloud;
};

LinuxPlatform::LinuxPlatform(const LinuxPlatformOptions& options)
    : services_(std::make_unique<Services>(options)) {}

LinuxPlatform::~LinuxPlatform() {
  services_->tasks->waitUntilIdle();
}

Platform LinuxPlatform::platform() {
  const Services& s = *services_;
  return {*s.clock,  *s.calendar,      *s.files,          *s.settings, *s.bundle,
          *s.images, *s.caseMapping,   *s.coder,          *s.process,  *s.random,
          *s.cloud,  *s.notifications, *s.liveActivities, *s.tasks,    *s.log};
}

std::string defaultContainer() {
  if (std::string container = environment("BREVANT_CONTAINER"); !container.empty()) {
    return container;
  }
  if (const std::string data = environment("XDG_DATA_HOME"); data.starts_with('/')) {
    return data + "/" + kAppGroupIdentifier;
  }
  const std::string home = environment("HOME");
  return home.empty() ? "" : home + "/.local/share/" + kAppGroupIdentifier;
}

std::string resourcesBesideProgram() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return program.parent_path().parent_path() / "share";
}

}  // namespace brevant
