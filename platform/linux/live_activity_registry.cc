// SPDX-License-Identifier: MIT
#include "platform/linux/live_activity_registry.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "platform/linux/durable_file.h"
#include "platform/linux/file_limits.h"
#include "platform/linux/json_check.h"
#include "platform/linux/shared_document.h"
#include "platform/uuid.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;
using ReadJson = nlohmann::json;  // finds a key among any number of them
using Kind = LiveActivityError::Kind;

constexpr std::size_t kMaxContentState = 4096;
constexpr const char* kTooLarge = "would become larger than 1024 KiB";
constexpr double kEndedKeptFor = 86400;

struct Entry {
  LiveActivity activity;
  double ended = 0;  // seconds since 1970; means nothing while it is active
};

bool isActive(const Entry& entry) {
  return entry.activity.state == LiveActivityState::kActive;
}

Entry decodedEntry(const ReadJson& json) {
  const bool active = json.at("ended").is_null();
  return {{json.at("id"), active ? LiveActivityState::kActive : LiveActivityState::kEnded,
           json.at("contentState")},
          active ? 0 : json.at("ended").get<double>()};
}

Json coded(const Entry& entry) {
  return {{"id", entry.activity.id},
          {"contentState", entry.activity.contentState},
          {"ended", isActive(entry) ? Json() : Json(entry.ended)}};
}

constexpr const char* kTooMuchContent = "the content state has more than 4096 bytes";

LiveActivityError notRunning(const std::string& id) {
  return {Kind::kNotRunning, "there is no running Live Activity " + id};
}

// Absent when the text is no registry. The limit of a content state holds here too: those who take
// it apart rely on it being small.
std::optional<std::vector<Entry>> decoded(const std::string& text) {
  if (!harmInJson(text).empty()) return std::nullopt;
  std::vector<Entry> entries;
  try {
    const ReadJson document = ReadJson::parse(text);
    for (const ReadJson& each : document.at("activities")) {
      entries.push_back(decodedEntry(each));
      if (entries.back().activity.contentState.size() > kMaxContentState) return std::nullopt;
    }
  } catch (const Json::exception&) {
    return std::nullopt;
  }
  return entries;
}

// Of a text that does not decode.
std::string problemOf(const std::string& text) {
  const std::string harm = harmInJson(text);
  return harm.empty() ? "is no registry of Live Activities" : harm;
}

// Absent when a text is no UTF-8.
std::optional<std::string> coded(const std::vector<Entry>& entries) {
  Json list = Json::array();
  for (const Entry& each : entries) list.push_back(coded(each));
  try {
    return Json{{"activities", list}}.dump(2) + "\n";
  } catch (const Json::exception&) {
    return std::nullopt;
  }
}

class Registry : public LiveActivityCenter {
 public:
  Registry(const std::string& container, const Clock& clock, RandomSource& random)
      : file_(container + "/LiveActivities", "activities.json", kMaxRegistrySize),
        clock_(clock),
        random_(random) {}

  LiveActivityList activities() const override {
    return list([](const Entry& entry) { return isActive(entry); });
  }

  LiveActivityList allActivities() const override {
    return list([this](const Entry& entry) { return isKept(entry); });
  }

  std::variant<StartedLiveActivity, LiveActivityError> start(
      const std::string& contentState) override {
    if (contentState.size() > kMaxContentState) {
      return LiveActivityError{Kind::kContent, kTooMuchContent};
    }
    std::string id = newUuid(random_);
    auto error = change([&](std::vector<Entry>& entries) {
      entries.push_back({{id, LiveActivityState::kActive, contentState}});
      return true;
    });
    if (error) return std::move(*error);
    return StartedLiveActivity{std::move(id)};
  }

  std::optional<LiveActivityError> update(const std::string& id,
                                          const std::string& contentState) override {
    if (contentState.size() > kMaxContentState) {
      return LiveActivityError{Kind::kContent, kTooMuchContent};
    }
    return changeActive(id, [&](Entry& entry) { entry.activity.contentState = contentState; });
  }

  // Both policies take it off the list of running ones; a host that leaves an ended one on show for
  // a while finds it among all.
  std::optional<LiveActivityError> end(const std::string& id, DismissalPolicy) override {
    return changeActive(id, [&](Entry& entry) {
      entry.activity.state = LiveActivityState::kEnded;
      entry.ended = secondsSince1970(clock_.now());
    });
  }

 private:
  bool isKept(const Entry& entry) const {
    return isActive(entry) || secondsSince1970(clock_.now()) - entry.ended < kEndedKeptFor;
  }

  template <typename Predicate>
  LiveActivityList list(const Predicate& wanted) const {
    std::vector<LiveActivity> result;
    const std::optional<std::string> text = file_.read();
    if (!text && !fileExists(file_.path())) return result;
    if (!text) return LiveActivityError{Kind::kRegistry, file_.whyUnreadable()};
    const std::optional<std::vector<Entry>> entries = decoded(*text);
    if (!entries) return LiveActivityError{Kind::kRegistry, file_.path() + ": " + problemOf(*text)};
    for (const Entry& each : *entries) {
      if (wanted(each)) result.push_back(each.activity);
    }
    return result;
  }

  // Stores what `edit` makes of the entries when it answers true.
  template <typename Edit>
  std::optional<LiveActivityError> change(const Edit& edit) {
    Kind kind = Kind::kRegistry;
    SaveOutcome outcome =
        file_.change([&](const std::optional<std::string>& text) -> SharedDocument::Edit {
          std::optional<std::vector<Entry>> entries = text ? decoded(*text) : std::vector<Entry>();
          if (!entries) return {std::nullopt, problemOf(*text)};
          if (!edit(*entries)) return {};
          std::erase_if(*entries, [this](const Entry& each) { return !isKept(each); });
          std::optional<std::string> contents = coded(*entries);
          if (!contents) {
            kind = Kind::kContent;
            return {std::nullopt, "a content state is no text"};
          }
          if (contents->size() > kMaxRegistrySize) return {std::nullopt, kTooLarge};
          return {std::move(contents), ""};
        });
    if (outcome.isSaved()) return std::nullopt;
    return LiveActivityError{kind, std::move(outcome.why)};
  }

  template <typename Edit>
  std::optional<LiveActivityError> changeActive(const std::string& id, const Edit& edit) {
    if (!fileExists(file_.path())) return notRunning(id);  // not even a folder is made for nothing
    bool found = false;
    auto error = change([&](std::vector<Entry>& entries) {
      const auto entry = std::find_if(entries.begin(), entries.end(), [&](const Entry& each) {
        return each.activity.id == id && isActive(each);
      });
      found = entry != entries.end();
      if (found) edit(*entry);
      return found;
    });
    if (!error && !found) error = notRunning(id);
    return error;
  }

  const SharedDocument file_;
  const Clock& clock_;
  RandomSource& random_;
};

}  // namespace

std::unique_ptr<LiveActivityCenter> makeLiveActivityRegistry(const std::string& container,
                                                             const Clock& clock,
                                                             RandomSource& random) {
  return std::make_unique<Registry>(container, clock, random);
}

}  // namespace brevant
