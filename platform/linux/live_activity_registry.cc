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
  Registry(const std::string& container, const Clock& clock, RandomSource& random, Log& log)
      : file_(container + "/LiveActivities", "activities.json", kMaxRegistrySize),
        clock_(clock),
        random_(random),
        log_(log) {}

  std::vector<LiveActivity> activities() const override {
    return list([](const Entry& entry) { return isActive(entry); });
  }

  std::vector<LiveActivity> allActivities() const override {
    return list([this](const Entry& entry) { return isKept(entry); });
  }

  std::variant<StartedLiveActivity, LiveActivityError> start(
      const std::string& contentState) override {
    if (contentState.size() > kMaxContentState) {
      return LiveActivityError{"the content state is above 4096 bytes"};
    }
    std::string id = newUuid(random_);
    const std::string problem = change([&](std::vector<Entry>& entries) {
      entries.push_back({{id, LiveActivityState::kActive, contentState}});
      return true;
    });
    if (!problem.empty()) return LiveActivityError{problem};
    return StartedLiveActivity{std::move(id)};
  }

  bool update(const std::string& id, const std::string& contentState) override {
    if (contentState.size() > kMaxContentState) return false;
    return changeActive(id, [&](Entry& entry) { entry.activity.contentState = contentState; });
  }

  // Both policies take it off the list of running ones; a host that leaves an ended one on show for
  // a while finds it among all.
  bool end(const std::string& id, DismissalPolicy) override {
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
  std::vector<LiveActivity> list(const Predicate& wanted) const {
    const std::optional<std::string> text = file_.read();
    if (!text) {
      if (fileExists(file_.path())) log_.write(file_.whyUnreadable());
      return {};
    }
    const std::optional<std::vector<Entry>> entries = decoded(*text);
    if (!entries) {
      log_.write(file_.path() + ": " + problemOf(*text));
      return {};
    }
    std::vector<LiveActivity> result;
    for (const Entry& each : *entries) {
      if (wanted(each)) result.push_back(each.activity);
    }
    return result;
  }

  // Stores what `edit` makes of the entries when it answers true. Empty on success.
  template <typename Edit>
  std::string change(const Edit& edit) {
    std::string problem =
        file_.change([&](const std::optional<std::string>& text) -> SharedDocument::Edit {
          std::optional<std::vector<Entry>> entries = text ? decoded(*text) : std::vector<Entry>();
          if (!entries) return {std::nullopt, problemOf(*text)};
          if (!edit(*entries)) return {};
          std::erase_if(*entries, [this](const Entry& each) { return !isKept(each); });
          std::optional<std::string> contents = coded(*entries);
          if (!contents) return {std::nullopt, "a content state is no text"};
          if (contents->size() > kMaxRegistrySize) return {std::nullopt, kTooLarge};
          return {std::move(contents), ""};
        });
    if (!problem.empty()) log_.write(problem);
    return problem;
  }

  template <typename Edit>
  bool changeActive(const std::string& id, const Edit& edit) {
    if (!fileExists(file_.path())) return false;  // not even a folder is made for nothing
    bool found = false;
    const std::string problem = change([&](std::vector<Entry>& entries) {
      const auto entry = std::find_if(entries.begin(), entries.end(), [&](const Entry& each) {
        return each.activity.id == id && isActive(each);
      });
      found = entry != entries.end();
      if (found) edit(*entry);
      return found;
    });
    return found && problem.empty();
  }

  const SharedDocument file_;
  const Clock& clock_;
  RandomSource& random_;
  Log& log_;
};

}  // namespace

std::unique_ptr<LiveActivityCenter> makeLiveActivityRegistry(const std::string& container,
                                                             const Clock& clock,
                                                             RandomSource& random, Log& log) {
  return std::make_unique<Registry>(container, clock, random, log);
}

}  // namespace brevant
