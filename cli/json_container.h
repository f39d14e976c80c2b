// SPDX-License-Identifier: MIT

// What lies around the log, in JSON.
#pragma once

#include <string>
#include <vector>

#include "cli/doctor.h"
#include "platform/cloud_database.h"

namespace brevant {

std::string cloudRecordsJson(const std::vector<CloudRecord>& records);
std::string findingsJson(const std::vector<Finding>& findings);
std::string fileJson(const std::string& file);
std::string errorJson(const std::string& error);

}  // namespace brevant
