// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace brevant::test {

// What stands in for services of a platform; null keeps the service that is there.
struct Replacement {
  const Calendar* calendar = nullptr;
  FileManager* files = nullptr;
  SharedSettings* settings = nullptr;
  UserNotificationCenter* notifications = nullptr;
  Log* log = nullptr;
};

inline Platform replaced(const Platform& p, const Replacement& by) {
  return {p.clock,
          by.calendar ? *by.calendar : p.calendar,
          by.files ? *by.files : p.files,
          by.settings ? *by.settings : p.settings,
          p.bundle,
          p.images,
          p.caseMapping,
          p.coder,
          p.process,
          p.random,
          p.cloud,
          by.notifications ? *by.notifications : p.notifications,
          p.liveActivities,
          p.tasks,
          by.log ? *by.log : p.log};
}

}  // namespace brevant::test
