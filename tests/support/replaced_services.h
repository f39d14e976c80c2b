#pragma once

#include "platform/platform.h"

namespace brevant::test {

// What stands in for services of a platform; null keeps the service that is there.
struct Replacement {
  const Calendar* calendar = nullptr;
  FileManager* files = nullptr;
  UserNotificationCenter* notifications = nullptr;
};

inline Platform replaced(const Platform& p, const Replacement& by) {
  return {p.clock,
          by.calendar ? *by.calendar : p.calendar,
          by.files ? *by.files : p.files,
          p.settings,
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
          p.log};
}

}  // namespace brevant::test
