// SPDX-License-Identifier: MIT
#include "manager/notify_settings.h"

#include <algorithm>
#include <string_view>

#include "platform/bundle.h"

namespace brevant {
namespace {

constexpr std::string_view kEnabled = "notifyEnabled";
constexpr std::string_view kMinutes = "notifyMinutes";
constexpr std::string_view kHoursAndDays = "notifyIncludedHoursAndDays";
constexpr std::string_view kOldHours = "notifyIncludedHours";
constexpr std::string_view kType = "remindMeType";

const PropertyValue* find(const PropertyDictionary& dictionary, std::string_view key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

// The low 32 bits, as the main application reads it.
std::int32_t integer(const PropertyValue* value) {
  return value ? static_cast<std::int32_t>(value->toInteger()) : 0;
}

const PropertyValue* element(const PropertyValue* array, std::size_t index) {
  const auto* elements = array ? std::get_if<PropertyArray>(&array->value) : nullptr;
  return elements && index < elements->size() ? &(*elements)[index] : nullptr;
}

// Numbers are equal whatever their type; a text is no number here.
bool isNumber(const PropertyValue& value, int number) {
  if (std::holds_alternative<std::string>(value.value)) return false;
  if (const auto* real = std::get_if<double>(&value.value)) return *real == number;
  return value.toInteger() == number;
}

PropertyValue hoursOfTheDay() {
  PropertyArray hours;
  for (std::int64_t hour = 9; hour <= 22; ++hour) hours.push_back({hour});
  return {hours};
}

}  // namespace

NotifySettings::NotifySettings(const PropertyDictionary* stored) {
  if (!stored) {
    minutes = 30;
    includeHours = buildForOldHours(hoursOfTheDay());
    return;
  }
  const PropertyValue* const on = find(*stored, kEnabled);
  enabled = on && on->toBool();
  minutes = integer(find(*stored, kMinutes));
  type = integer(find(*stored, kType));
  const PropertyValue* const hoursAndDays = find(*stored, kHoursAndDays);
  const PropertyValue* const oldHours = find(*stored, kOldHours);
  if (hoursAndDays) {
    includeHours = *hoursAndDays;
  } else {
    includeHours = buildForOldHours(oldHours ? *oldHours : PropertyValue{PropertyArray()});
  }
}

PropertyDictionary NotifySettings::dictionary() const {
  PropertyDictionary result{{std::string(kEnabled), {enabled}},
                            {std::string(kMinutes), {std::int64_t{minutes}}},
                            {std::string(kType), {std::int64_t{type}}}};
  if (includeHours) result.emplace(kHoursAndDays, *includeHours);
  return result;
}

std::string NotifySettings::description(const Bundle& bundle) const {
  if (minutes == 60) return bundle.localizedString("Every hour");
  if (minutes == 120) return bundle.localizedString("Every 2 hours");
  std::string text = bundle.localizedPlural("Every %d minutes", minutes);
  const std::size_t place = text.find("%d");
  if (place != std::string::npos) text.replace(place, 2, std::to_string(minutes));
  return text;
}

bool NotifySettings::includes(std::size_t hour, std::size_t weekday) const {
  const PropertyValue* const rows = includeHours ? &*includeHours : nullptr;
  const PropertyValue* const flag = element(element(rows, hour), weekday);
  return flag && flag->toBool();
}

PropertyValue NotifySettings::buildForOldHours(const PropertyValue& hours) {
  PropertyArray rows;
  const auto* list = std::get_if<PropertyArray>(&hours.value);
  for (int number = 1; number <= 24; ++number) {
    const bool on = list && std::any_of(list->begin(), list->end(), [&](const PropertyValue& each) {
                      return isNumber(each, number);
                    });
    rows.push_back({PropertyArray(7, PropertyValue{on})});
  }
  return {rows};
}

}  // namespace brevant
