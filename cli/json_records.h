// SPDX-License-Identifier: MIT

// The records of the database in JSON.
#pragma once

#include <string>
#include <string_view>

#include "cli/status.h"
#include "store/widget_activity.h"
#include "store/widget_type.h"

namespace brevant {

std::string activitiesJson(const ActivityList& activities);
std::string categoriesJson(const TypeList& types);
std::string categoryJson(const WidgetType& type);
std::string statusJson(const Status& status);
std::string guidJson(std::string_view guid);

}  // namespace brevant
