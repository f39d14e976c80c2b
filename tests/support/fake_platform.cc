// SPDX-License-Identifier: MIT
#include "tests/support/fake_platform.h"

#include <algorithm>

namespace brevant::test {
namespace {

const LiveActivityError kTooMuch{LiveActivityError::Kind::kContent, "too much content"};
const LiveActivityError kNotRunning{LiveActivityError::Kind::kNotRunning, "not running"};

std::string withoutRepeatedSlashes(const std::string& path) {
  std::string result;
  for (const char c : path) {
    if (c != '/' || !result.ends_with('/')) result += c;
  }
  return result;
}

template <typename Map>
typename Map::mapped_type find(const Map& map, const std::string& key) {
  const auto found = map.find(key);
  return found == map.end() ? typename Map::mapped_type{} : found->second;
}

}  // namespace

DateComponents FakeCalendar::components(Date date) const {
  using std::chrono::floor;
  const auto local = floor<std::chrono::seconds>(date) + std::chrono::seconds(offsetSeconds);
  const auto midnight = floor<std::chrono::days>(local);
  const std::chrono::year_month_day ymd(midnight);
  const std::chrono::hh_mm_ss time(local - midnight);
  return {static_cast<int>(ymd.year()),
          static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count()),
          static_cast<int>(std::chrono::weekday(midnight).c_encoding()) + 1};
}

Date FakeCalendar::date(const DateComponents& c) const {
  const auto first = std::chrono::year_month(std::chrono::year(c.year), std::chrono::month(1)) +
                     std::chrono::months(c.month - 1);
  const std::chrono::sys_days day = std::chrono::sys_days(first / 1) + std::chrono::days(c.day - 1);
  const long seconds = c.hour * 3600L + c.minute * 60L + c.second - offsetSeconds;
  return Date(day) + Seconds(static_cast<double>(seconds));
}

Date FakeCalendar::addingDays(Date date, int days) const {
  return date + Seconds(86400.0 * days);
}

std::optional<FileUrl> FakeFileManager::containerUrl(const std::string& group) const {
  if (!container || group != kAppGroupIdentifier) return std::nullopt;
  return FileUrl::directory(*container);
}

bool FakeFileManager::fileExists(const std::string& path) const {
  return files.contains(withoutRepeatedSlashes(path));
}

std::optional<std::string> FakeFileManager::contents(const std::string& path,
                                                     std::size_t limit) const {
  const auto found = files.find(withoutRepeatedSlashes(path));
  if (found == files.end() || found->second.size() > limit) return std::nullopt;
  return found->second;
}

std::string FakeFileManager::removeFile(const std::string& path) {
  return files.erase(withoutRepeatedSlashes(path)) > 0 ? "" : "no such file";
}

void FakeFileManager::setModificationDate(const std::string& path, Date date) {
  modified[withoutRepeatedSlashes(path)] = date;
}

std::shared_ptr<const PropertyValue> FakeSettings::object(const std::string& key) const {
  const auto found = values.find(key);
  return found == values.end() ? nullptr : std::make_shared<const PropertyValue>(found->second);
}

bool FakeSettings::boolean(const std::string& key) const {
  const auto value = object(key);
  return value && value->toBool();
}

std::int64_t FakeSettings::integer(const std::string& key) const {
  const auto value = object(key);
  return value ? value->toInteger() : 0;
}

void FakeSettings::setBool(bool value, const std::string& key) {
  values[key] = {value};
}

SaveOutcome FakeSettings::synchronize() {
  ++synchronizations;
  return {};
}

ImageRef FakeBundle::imageNamed(const std::string& name) const {
  return find(images, name);
}

std::string FakeBundle::localizedString(const std::string& key) const {
  const auto found = texts.find(key);
  return found == texts.end() ? key : found->second;
}

ImageRef FakeImageCodec::imageWithContentsOfFile(const std::string& path) const {
  return find(byPath, withoutRepeatedSlashes(path));
}

std::optional<ImageRef> FakeImageCodec::unarchiveImage(
    std::span<const std::uint8_t> archive) const {
  const auto found = byContents.find({archive.begin(), archive.end()});
  return found == byContents.end() ? std::nullopt : std::optional(found->second);
}

void FakeRandom::fill(std::span<std::uint8_t> bytes) {
  std::uint64_t rest = next++;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, rest >>= 8U) {
    *byte = static_cast<std::uint8_t>(rest);
  }
}

void FakeCloud::save(const std::string& container, const CloudRecord& record,
                     Completion completion) {
  if (error.empty()) saved.emplace_back(container, record);
  completion(error);
}

void FakeNotificationCenter::pendingRequests(Handler handler, Completion done) {
  const std::vector<NotificationRequest> snapshot = pending;
  handler(snapshot);
  done({});
}

void FakeNotificationCenter::removePendingRequests(const std::vector<std::string>& identifiers) {
  std::erase_if(pending, [&](const NotificationRequest& request) {
    return std::find(identifiers.begin(), identifiers.end(), request.identifier) !=
           identifiers.end();
  });
}

void FakeNotificationCenter::add(const NotificationRequest& request, Completion completion) {
  removePendingRequests({request.identifier});
  pending.push_back(request);
  completion({});
}

LiveActivityList FakeLiveActivities::activities() const {
  if (damage) return *damage;
  std::vector<LiveActivity> running;
  std::copy_if(all.begin(), all.end(), std::back_inserter(running),
               [](const LiveActivity& each) { return each.state == LiveActivityState::kActive; });
  return running;
}

std::variant<StartedLiveActivity, LiveActivityError> FakeLiveActivities::start(
    const std::string& contentState) {
  if (contentState.size() > 4096) return kTooMuch;
  all.push_back({"live-" + std::to_string(++started), LiveActivityState::kActive, contentState});
  return StartedLiveActivity{all.back().id};
}

LiveActivity* FakeLiveActivities::active(const std::string& id) {
  for (LiveActivity& each : all) {
    if (each.id == id && each.state == LiveActivityState::kActive) return &each;
  }
  return nullptr;
}

std::optional<LiveActivityError> FakeLiveActivities::update(const std::string& id,
                                                            const std::string& contentState) {
  if (contentState.size() > 4096) return kTooMuch;
  LiveActivity* const activity = active(id);
  if (!activity) return kNotRunning;
  activity->contentState = contentState;
  return std::nullopt;
}

std::optional<LiveActivityError> FakeLiveActivities::end(const std::string& id, DismissalPolicy) {
  LiveActivity* const activity = active(id);
  if (!activity) return kNotRunning;
  activity->state = LiveActivityState::kEnded;
  return std::nullopt;
}

void FakeTasks::waitUntilIdle() {
  while (!tasks.empty()) {
    const std::vector<std::function<void()>> ready = std::exchange(tasks, {});
    for (const auto& task : ready) task();
  }
}

void FakeTasks::runReversed() {
  std::reverse(tasks.begin(), tasks.end());
  waitUntilIdle();
}

}  // namespace brevant::test
