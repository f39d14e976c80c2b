// SPDX-License-Identifier: MIT
#include "platform/linux/notification_store.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "platform/linux/durable_file.h"
#include "platform/linux/file_limits.h"
#include "platform/linux/json_check.h"
#include "platform/linux/shared_document.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;
using ReadJson = nlohmann::json;  // finds a key among any number of them
using Requests = std::vector<NotificationRequest>;

// How often others may change the requests while a handler works on them.
constexpr int kMostAttempts = 100;
constexpr const char* kTooLarge = "would become larger than 1024 KiB";

// Clamped, so that no number in a file is beyond what a component can hold.
int component(const ReadJson& trigger, const char* key) {
  return static_cast<int>(std::clamp<double>(trigger.at(key), INT32_MIN, INT32_MAX));
}

// Seconds since 1970; requests of earlier versions have none.
std::optional<Date> date(const ReadJson& json, const char* key) {
  const auto found = json.find(key);
  if (found == json.end()) return std::nullopt;
  return dateFromSeconds(found->get<double>());
}

void add(Json& json, const char* key, const std::optional<Date>& date) {
  if (date) json[key] = secondsSince1970(*date);
}

NotificationRequest decodedRequest(const ReadJson& json) {
  const ReadJson& trigger = json.at("trigger");
  NotificationRequest request{
      json.at("identifier"),
      {json.at("title"), json.at("body"), json.at("userInfo"), json.at("sound")},
      {{}, trigger.at("repeats"), date(trigger, "instant")},
      date(json, "added")};
  DateComponents& at = request.trigger.components;
  at.year = component(trigger, "year");
  at.month = component(trigger, "month");
  at.day = component(trigger, "day");
  at.hour = component(trigger, "hour");
  at.minute = component(trigger, "minute");
  at.second = component(trigger, "second");
  return request;
}

Json coded(const NotificationRequest& request) {
  const DateComponents& at = request.trigger.components;
  Json trigger = {{"year", at.year},
                  {"month", at.month},
                  {"day", at.day},
                  {"hour", at.hour},
                  {"minute", at.minute},
                  {"second", at.second},
                  {"repeats", request.trigger.repeats}};
  add(trigger, "instant", request.trigger.instant);
  Json json = {{"identifier", request.identifier}, {"title", request.content.title},
               {"body", request.content.body},     {"userInfo", Json(request.content.userInfo)},
               {"sound", request.content.sound},   {"trigger", std::move(trigger)}};
  add(json, "added", request.added);
  return json;
}

// Absent when the text is no list of requests.
std::optional<Requests> decoded(const std::string& text) {
  if (!harmInJson(text).empty()) return std::nullopt;
  Requests requests;
  try {
    const ReadJson document = ReadJson::parse(text);
    for (const ReadJson& each : document.at("requests")) {
      requests.push_back(decodedRequest(each));
      if (requests.back().content.userInfo.size() > kMaxTextFields) return std::nullopt;
    }
  } catch (const Json::exception&) {
    return std::nullopt;
  }
  return requests;
}

// Of a text that does not decode.
std::string problemOf(const std::string& text) {
  const std::string harm = harmInJson(text);
  if (!harm.empty()) return harm;
  return "is no list of notification requests with at most " + std::to_string(kMaxTextFields) +
         " values each";
}

// A name from the database that is no UTF-8 must not keep a reminder from being stored.
std::string coded(const Requests& requests) {
  Json list = Json::array();
  for (const NotificationRequest& each : requests) list.push_back(coded(each));
  return Json{{"requests", list}}.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

// What a handler makes of the requests while it runs.
struct Batch {
  const void* store;
  std::optional<std::string> text;  // the file as the handler found it
  Requests requests;
  std::vector<UserNotificationCenter::Completion> completions;
};

// The handler that runs on this thread.
thread_local Batch* running = nullptr;

class Store : public UserNotificationCenter {
 public:
  Store(const std::string& container, const Clock& clock)
      : file_(container + "/Notifications", "requests.json", kMaxReminderFileSize), clock_(clock) {}

  void pendingRequests(Handler handler, Completion done) override {
    if (Batch* const batch = runningHandler()) {
      const Requests pending = batch->requests;
      handler(pending);
      return batch->completions.push_back(std::move(done));
    }
    done(handled(handler));
  }

  void removePendingRequests(const std::vector<std::string>& identifiers) override {
    if (identifiers.empty()) return;
    if (Batch* const batch = runningHandler()) return remove(batch->requests, identifiers);
    change([&](const auto&, Requests& requests) { remove(requests, identifiers); });
  }

  void add(const NotificationRequest& request, Completion completion) override {
    const auto addTo = [&](Requests& requests) {
      remove(requests, {request.identifier});
      requests.push_back(request);
      requests.back().added = clock_.now();
    };
    if (Batch* const batch = runningHandler()) {
      addTo(batch->requests);
      return batch->completions.push_back(std::move(completion));
    }
    completion(change([&](const auto&, Requests& requests) { addTo(requests); }));
  }

 private:
  static void remove(Requests& requests, const std::vector<std::string>& identifiers) {
    std::erase_if(requests, [&](const NotificationRequest& each) {
      return std::find(identifiers.begin(), identifiers.end(), each.identifier) !=
             identifiers.end();
    });
  }

  Batch* runningHandler() const {
    return running != nullptr && running->store == this ? running : nullptr;
  }

  // No lock is held while the handler asks what it needs to know: it is called again instead.
  SaveOutcome handled(const Handler& handler) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
      Batch batch{this, file_.read(), {}, {}};
      if (!batch.text && fileExists(file_.path())) return notSaved(file_.whyUnreadable());
      if (batch.text) {
        std::optional<Requests> requests = decoded(*batch.text);
        if (!requests) return notSaved(file_.path() + ": " + problemOf(*batch.text));
        batch.requests = std::move(*requests);
      }
      const Requests pending = batch.requests;
      Batch* const outer = std::exchange(running, &batch);
      handler(pending);
      running = outer;
      const std::optional<SaveOutcome> outcome =
          batch.requests == pending ? SaveOutcome() : stored(batch);
      if (!outcome) continue;
      for (const Completion& each : batch.completions) each(*outcome);
      return *outcome;
    }
    return notSaved(file_.path() + ": others keep changing it");
  }

  // Absent when the requests are others by now.
  std::optional<SaveOutcome> stored(const Batch& batch) {
    bool isOutdated = false;
    SaveOutcome outcome = change([&](const std::optional<std::string>& text, Requests& requests) {
      isOutdated = text != batch.text;
      if (!isOutdated) requests = batch.requests;
    });
    return isOutdated ? std::nullopt : std::optional(std::move(outcome));
  }

  template <typename Edit>
  SaveOutcome change(const Edit& edit) {
    return file_.change([&](const std::optional<std::string>& text) -> SharedDocument::Edit {
      std::optional<Requests> requests = text ? decoded(*text) : Requests();
      if (!requests) return {std::nullopt, problemOf(*text)};
      const Requests before = *requests;
      edit(text, *requests);
      if (*requests == before) return {};
      std::string changed = coded(*requests);
      if (changed.size() > kMaxReminderFileSize) return {std::nullopt, kTooLarge};
      return {std::move(changed), ""};
    });
  }

  const SharedDocument file_;
  const Clock& clock_;
};

}  // namespace

std::unique_ptr<UserNotificationCenter> makeNotificationStore(const std::string& container,
                                                              const Clock& clock) {
  return std::make_unique<Store>(container, clock);
}

}  // namespace brevant
