// SPDX-License-Identifier: MIT
#include "cli/json_container.h"

#include "cli/json.h"

namespace brevant {
std::string cloudRecordsJson(const std::vector<CloudRecord>& records) {
  Json list = Json::array();
  for (const CloudRecord& record : records) {
    list.push_back({{"recordType", record.recordType},
                    {"recordName", record.recordName},
                    {"fields", Json(record.fields)}});
  }
  return printed(list);
}

std::string findingsJson(const std::vector<Finding>& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings) {
    list.push_back({{"check", finding.check},
                    {"state", stateName(finding.state)},
                    {"message", finding.message},
                    {"advice", finding.advice.empty() ? Json(nullptr) : Json(finding.advice)}});
  }
  return printed(list);
}

std::string errorJson(const std::string& error) {
  return printed({{"error", error}});
}

std::string fileJson(const std::string& file) {
  return printed({{"file", file}});
}

}  // namespace brevant
