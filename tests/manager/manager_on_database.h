// SPDX-License-Identifier: MIT
#pragma once

#include "manager/widget_manager.h"
#include "tests/support/database.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {

// A manager of a real database file, on a fake platform.
struct ManagerOnDatabase {
  FakePlatform fakes;
  TestDatabase database{fakes};
  WidgetManager manager{fakes.platform(), database.path};

  ActivityRef onlyActivity() const { return manager.findActivities().at(0); }
};

}  // namespace brevant::test
