// SPDX-License-Identifier: MIT

// A program of somebody else's: counts the unfinished activities of the container it is given.
#include <cstdio>

#include "manager/widget_manager.h"
#include "platform/linux/linux_platform.h"

int main(int count, char** arguments) {
  if (count != 2) return 2;
  brevant::LinuxPlatform services(
      {.container = arguments[1], .now = std::nullopt, .resources = ""});
  std::printf("%zu\n", brevant::WidgetManager::open(services.platform())->findActivities().size());
}
