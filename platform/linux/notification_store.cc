#include "platform/linux/notification_store.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "platform/linux/shared_document.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;
using Requests = std::vector<NotificationRequest>;

constexpr std::size_t kMaxStoreSize = std::size_t{16} << 20U;

// Clamped, so that no number in a file is beyond what a component can hold.
int component(const Json& trigger, const char* key) {
  return static_cast<int>(std::clamp<double>(trigger.at(key), INT32_MIN, INT32_MAX));
}

NotificationRequest decodedRequest(const Json& json) {
  const Json& trigger = json.at("trigger");
  NotificationRequest request{
      json.at("identifier"),
      {json.at("title"), json.at("body"), json.at("userInfo"), json.at("sound")},
      {{}, trigger.at("repeats")}};
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
  return {{"identifier", request.identifier},
          {"title", request.content.title},
          {"body", request.content.body},
          {"userInfo", Json(request.content.userInfo)},
          {"sound", request.content.sound},
          {"trigger",
           {{"year", at.year},
            {"month", at.month},
            {"day", at.day},
            {"hour", at.hour},
            {"minute", at.minute},
            {"second", at.second},
            {"repeats", request.trigger.repeats}}}};
}

// Absent when the text is no list of requests.
std::optional<Requests> decoded(const std::string& text) {
  Requests requests;
  try {
    const Json document = Json::parse(text);
    for (const Json& each : document.at("requests")) {
      requests.push_back(decodedRequest(each));
    }
  } catch (const Json::exception&) {
    return std::nullopt;
  }
  return requests;
}

// A name from the database that is no UTF-8 must not keep a reminder from being stored.
std::string coded(const Requests& requests) {
  Json list = Json::array();
  for (const NotificationRequest& each : requests) list.push_back(coded(each));
  return Json{{"requests", list}}.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

class Store : public UserNotificationCenter {
 public:
  Store(const std::string& container, Log& log)
      : file_(container + "/Notifications", "requests.json", kMaxStoreSize), log_(log) {}

  void pendingRequests(Handler handler) override {
    const std::optional<std::string> text = file_.read();
    std::optional<Requests> requests = text ? decoded(*text) : Requests();
    if (!requests) log_.write(file_.path() + ": is no list of notification requests");
    handler(requests.value_or(Requests()));
  }

  void removePendingRequests(const std::vector<std::string>& identifiers) override {
    if (identifiers.empty()) return;
    change([&](Requests& requests) { remove(requests, identifiers); });
  }

  void add(const NotificationRequest& request, Completion completion) override {
    completion(change([&](Requests& requests) {
      remove(requests, {request.identifier});
      requests.push_back(request);
    }));
  }

 private:
  static void remove(Requests& requests, const std::vector<std::string>& identifiers) {
    std::erase_if(requests, [&](const NotificationRequest& each) {
      return std::find(identifiers.begin(), identifiers.end(), each.identifier) !=
             identifiers.end();
    });
  }

  template <typename Edit>
  std::string change(const Edit& edit) {
    std::string problem =
        file_.change([&](const std::optional<std::string>& text) -> SharedDocument::Edit {
          std::optional<Requests> requests = text ? decoded(*text) : Requests();
          if (!requests) return {std::nullopt, "is no list of notification requests"};
          const Requests before = *requests;
          edit(*requests);
          if (*requests == before) return {};
          return {coded(*requests), ""};
        });
    if (!problem.empty()) log_.write(problem);
    return problem;
  }

  const SharedDocument file_;
  Log& log_;
};

}  // namespace

std::unique_ptr<UserNotificationCenter> makeNotificationStore(const std::string& container,
                                                              Log& log) {
  return std::make_unique<Store>(container, log);
}

}  // namespace brevant
