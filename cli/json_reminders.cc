// SPDX-License-Identifier: MIT
#include "cli/json_reminders.h"

#include "cli/json.h"

namespace brevant {
namespace {

// The table of hours as it was stored, whatever its shape: what is no flag counts as off.
Json hoursJson(const std::optional<PropertyValue>& stored) {
  if (!stored) return nullptr;
  Json table = Json::array();
  const auto* rows = std::get_if<PropertyArray>(&stored->value);
  if (rows == nullptr) return table;
  for (const PropertyValue& row : *rows) {
    Json flags = Json::array();
    if (const auto* days = std::get_if<PropertyArray>(&row.value)) {
      for (const PropertyValue& day : *days) flags.push_back(day.toBool());
    }
    table.push_back(std::move(flags));
  }
  return table;
}

Json json(const CalendarTrigger& trigger) {
  const DateComponents& at = trigger.components;
  return {{"year", at.year},           {"month", at.month},   {"day", at.day},
          {"hour", at.hour},           {"minute", at.minute}, {"second", at.second},
          {"repeats", trigger.repeats}};
}

}  // namespace

std::string notifySettingsJson(const NotifySettings& settings, const std::string& description) {
  return printed({{"enabled", settings.enabled},
                  {"minutes", settings.minutes},
                  {"type", settings.type},
                  {"includeHours", hoursJson(settings.includeHours)},
                  {"description", description}});
}

std::string datesJson(const std::vector<Date>& dates) {
  Json list = Json::array();
  for (const Date& date : dates) list.push_back(secondsSince1970(date));
  return printed(list);
}

std::string notificationRequestsJson(const std::vector<NotificationRequest>& requests) {
  Json list = Json::array();
  for (const NotificationRequest& request : requests) {
    const NotificationContent& content = request.content;
    list.push_back({{"identifier", request.identifier},
                    {"title", content.title},
                    {"body", content.body},
                    {"userInfo", Json(content.userInfo)},
                    {"sound", content.sound.empty() ? Json(nullptr) : Json(content.sound)},
                    {"trigger", json(request.trigger)}});
  }
  return printed(list);
}

}  // namespace brevant
