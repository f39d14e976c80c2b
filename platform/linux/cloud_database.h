// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/cloud_database.h"
#include "platform/task_queue.h"

namespace brevant {

// Where the records of all cloud containers lie: $BREVANT_CLOUD_DIR, else in the app group's
// container.
std::string cloudDirectory(const std::string& container);

// Saves each record as a file of its own below `directory`: docs/cloud.md.
std::unique_ptr<CloudDatabase> makeCloudDatabase(const std::string& directory, TaskQueue& tasks);

// What is told of a file that is passed over.
using CloudProblem = std::function<void(const std::string& problem)>;

// The records of one cloud container, by type and name, as far as kMaxCloudRecordsSize of them can
// be read. Files that are no records are passed over.
std::vector<CloudRecord> savedCloudRecords(const std::string& directory,
                                           const std::string& cloudContainer,
                                           const CloudProblem& tell);

}  // namespace brevant
