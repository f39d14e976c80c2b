// SPDX-License-Identifier: MIT

// Fakes of every platform service that has an outside, in memory and under the test's control. They
// keep the same promises as the real services and pass the same contract tests.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/bundle.h"
#include "platform/calendar.h"
#include "platform/clock.h"
#include "platform/cloud_database.h"
#include "platform/coder.h"
#include "platform/file_manager.h"
#include "platform/image_codec.h"
#include "platform/linux/case_mapping.h"
#include "platform/linux/json_coder.h"
#include "platform/live_activities.h"
#include "platform/log.h"
#include "platform/notifications.h"
#include "platform/platform.h"
#include "platform/process_info.h"
#include "platform/random_source.h"
#include "platform/shared_settings.h"
#include "platform/task_queue.h"
#include "platform/text.h"

namespace brevant::test {

struct FakeClock : Clock {
  Date now() const override { return std::exchange(time, time + tick); }
  double monotonicSeconds() const override { return monotonic += monotonicTick; }

  mutable Date time = dateFromSeconds(1'700'000'000);  // 2023-11-14 22:13:20 UTC
  Seconds tick{0};                                     // passes with each reading
  mutable double monotonic = 0;
  double monotonicTick = 0;  // passes with each look at it
};

// A zone of one fixed offset, without daylight saving.
struct FakeCalendar : Calendar {
  explicit FakeCalendar(int offset = 0) : offsetSeconds(offset) {}
  DateComponents components(Date date) const override;
  Date date(const DateComponents& components) const override;
  Date addingDays(Date date, int days) const override;

  int offsetSeconds;
};

struct FakeFileManager : FileManager {
  std::optional<FileUrl> containerUrl(const std::string& group) const override;
  std::optional<std::string> cachesDirectory() const override { return caches; }
  bool fileExists(const std::string& path) const override;
  std::optional<std::string> contents(const std::string& path, std::size_t limit) const override;
  std::string removeFile(const std::string& path) override;
  void setModificationDate(const std::string& path, Date date) override;

  std::optional<std::string> container = "/container";
  std::optional<std::string> caches = "/caches";
  std::map<std::string, std::string> files;  // path without repeated slashes -> contents
  std::map<std::string, Date> modified;
};

struct FakeSettings : SharedSettings {
  std::shared_ptr<const PropertyValue> object(const std::string& key) const override;
  bool boolean(const std::string& key) const override;
  std::int64_t integer(const std::string& key) const override;
  std::string problem() const override { return ""; }
  void setBool(bool value, const std::string& key) override;
  SaveOutcome synchronize() override;

  PropertyDictionary values;
  int synchronizations = 0;
};

struct FakeBundle : Bundle {
  ImageRef imageNamed(const std::string& name) const override;
  std::string localizedString(const std::string& key) const override;
  std::string localizedPlural(const std::string& key, long) const override {
    return localizedString(key);
  }

  std::map<std::string, ImageRef> images;
  std::map<std::string, std::string> texts;
};

// Answers what the test put under the archive's bytes or the path.
struct FakeImageCodec : ImageCodec {
  ImageRef decodePng(std::span<const std::uint8_t>, double) const override { return nullptr; }
  ImageRef imageWithContentsOfFile(const std::string& path) const override;
  ImageRef silhouetteWithContentsOfFile(const std::string& path) const override {
    return imageWithContentsOfFile(path);
  }
  std::optional<std::vector<std::uint8_t>> encodePng(const Image& image) const override {
    return image.pixels;
  }
  std::optional<ImageRef> unarchiveImage(std::span<const std::uint8_t> archive) const override;

  std::map<std::string, ImageRef> byContents;  // null: an archive of something else
  std::map<std::string, ImageRef> byPath;
};

// The real one: it is pure, so that there is nothing to control.
struct FakeCoder : Coder {
  std::optional<std::string> encode(
      const std::function<void(KeyedEncoder&)>& write) const override {
    return json->encode(write);
  }
  std::optional<DecodingError> decode(
      std::string_view coded, const std::function<void(const KeyedDecoder&)>& read) const override {
    return json->decode(coded, read);
  }

  const std::unique_ptr<Coder> json = makeJsonCoder();
};

struct FakeProcessInfo : ProcessInfo {
  SystemVersion systemVersion() const override { return version; }
  std::string systemVersionString() const override {
    return std::to_string(version.major) + "." + std::to_string(version.minor);
  }
  bool isiOSAppOnMac() const override { return onMac; }

  SystemVersion version{17, 0};
  bool onMac = false;
};

// Counts up, so that every identity differs and runs repeat.
struct FakeRandom : RandomSource {
  void fill(std::span<std::uint8_t> bytes) override;

  std::uint64_t next = 1;
};

struct FakeCloud : CloudDatabase {
  void save(const std::string& container, const CloudRecord& record,
            Completion completion) override;

  std::vector<std::pair<std::string, CloudRecord>> saved;
  std::string error;
};

struct FakeNotificationCenter : UserNotificationCenter {
  void pendingRequests(Handler handler, Completion done) override;
  void removePendingRequests(const std::vector<std::string>& identifiers) override;
  void add(const NotificationRequest& request, Completion completion) override;

  std::vector<NotificationRequest> pending;
};

struct FakeLiveActivities : LiveActivityCenter {
  LiveActivityList activities() const override;
  LiveActivityList allActivities() const override {
    return damage ? LiveActivityList(*damage) : LiveActivityList(all);
  }
  std::variant<StartedLiveActivity, LiveActivityError> start(
      const std::string& contentState) override;
  std::optional<LiveActivityError> update(const std::string& id,
                                          const std::string& contentState) override;
  std::optional<LiveActivityError> end(const std::string& id, DismissalPolicy policy) override;

  std::optional<LiveActivityError> damage;  // what it answers then
  std::vector<LiveActivity> all;
  int started = 0;

 private:
  LiveActivity* active(const std::string& id);
};

// Keeps tasks until the test runs them, in the order of its choosing.
struct FakeTasks : TaskQueue {
  void start(std::function<void()> task) override { tasks.push_back(std::move(task)); }
  void waitUntilIdle() override;
  void runReversed();

  std::vector<std::function<void()>> tasks;
};

struct FakeLog : Log {
  void write(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;
};

struct FakePlatform {
  FakeClock clock;
  FakeCalendar calendar;
  FakeFileManager files;
  FakeSettings settings;
  FakeBundle bundle;
  FakeImageCodec images;
  const std::unique_ptr<CaseMapping> allCases = makeCaseMapping();
  const CaseMapping& caseMapping = *allCases;
  FakeCoder coder;
  FakeProcessInfo process;
  FakeRandom random;
  FakeCloud cloud;
  FakeNotificationCenter notifications;
  FakeLiveActivities liveActivities;
  FakeTasks tasks;
  FakeLog log;

  Platform platform() {
    return {clock,   calendar, files, settings,      bundle,         images, caseMapping, coder,
            process, random,   cloud, notifications, liveActivities, tasks,  log};
  }
};

}  // namespace brevant::test
