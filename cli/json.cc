// SPDX-License-Identifier: MIT
#include "cli/json.h"

namespace brevant {

std::string printed(const Json& json) {
  return compact(json) + '\n';
}

std::string compact(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace brevant
