// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/platform.h"
#include "platform/process_info.h"

namespace brevant {

// What a process decides about its platform before it starts.
struct LinuxPlatformOptions {
  std::string container;      // directory; relative to the working directory
  std::optional<double> now;  // seconds since 1970; the clock then stands still
  std::string systemVersion = "17.0";
  bool isiOSAppOnMac = false;
  std::string resources;  // the "share" directory that holds brevant/images and locale
};

// The platform services of a Linux process: made once by the program's entry, which owns them.
// Destruction waits for the tasks that were started.
class LinuxPlatform {
 public:
  explicit LinuxPlatform(const LinuxPlatformOptions& options);
  ~LinuxPlatform();
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  Platform platform();

 private:
  struct Services;
  std::unique_ptr<Services> services_;
};

// The container that the environment names when no option does: $BREVANT_CONTAINER, else
// $XDG_DATA_HOME/group.brevant, else ~/.local/share/group.brevant.
std::string defaultContainer();

// The "share" directory beside the running program's folder.
std::string resourcesBesideProgram();

}  // namespace brevant
