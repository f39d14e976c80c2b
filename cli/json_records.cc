// SPDX-License-Identifier: MIT
#include "cli/json_records.h"

#include "cli/json.h"

namespace brevant {
namespace {

Json json(const WidgetInterval& interval) {
  return {{"guid", orNull(interval.guid)},
          {"from", orNull(interval.from)},
          {"to", orNull(interval.to)},
          {"duration", interval.duration()}};
}

Json json(const WidgetActivity& activity) {
  Json intervals = nullptr;
  if (activity.intervals) {
    intervals = Json::array();
    for (const auto& interval : *activity.intervals) intervals.push_back(json(*interval));
  }
  return {{"guid", orNull(activity.guid)},
          {"categoryGuid", orNull(activity.categoryGuid)},
          {"state", activity.state},
          {"start", orNull(activity.start)},
          {"comment", orNull(activity.comment)},
          {"intervals", std::move(intervals)}};
}

Json json(const WidgetType& type) {
  const auto* group = dynamic_cast<const WidgetGroup*>(&type);
  Json children = nullptr;
  if (group != nullptr && group->children) {
    children = Json::array();
    for (const WidgetType* child : *group->children) children.push_back(orNull(child->guid));
  }
  return {{"guid", orNull(type.guid)},
          {"name", orNull(type.name)},
          {"imageGuid", orNull(type.imageGuid)},
          {"parentGuid", orNull(type.parentGuid)},
          {"nestingLevel", type.nestingLevel},
          {"color", type.color},
          {"order", type.order},
          {"isGroup", group != nullptr},
          {"children", std::move(children)}};
}

Json json(const StatusItem& item) {
  return {{"guid", orNull(item.guid)},   {"categoryGuid", orNull(item.categoryGuid)},
          {"name", orNull(item.name)},   {"color", orNull(item.color)},
          {"start", orNull(item.start)}, {"elapsed", item.elapsed},
          {"total", item.total}};
}

template <typename Records, typename Write>
Json list(const Records& records, Write write) {
  Json result = Json::array();
  for (const auto& record : records) result.push_back(write(record));
  return result;
}

constexpr auto kReferenced = [](const auto& record) { return json(*record); };
constexpr auto kPlain = [](const auto& record) { return json(record); };

}  // namespace

std::string activitiesJson(const ActivityList& activities) {
  return printed(list(activities, kReferenced));
}

std::string categoriesJson(const TypeList& types) {
  return printed(list(types, kReferenced));
}

std::string categoryJson(const WidgetType& type) {
  return printed(json(type));
}

std::string statusJson(const Status& status) {
  return printed(
      {{"running", list(status.running, kPlain)}, {"paused", list(status.paused, kPlain)}});
}

std::string guidJson(std::string_view guid) {
  return printed({{"guid", guid}});
}

}  // namespace brevant
