// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/date.h"
#include "platform/linux/descriptor.h"

struct inotify_event;

namespace brevant {

// A file whose changes matter, there or not yet.
struct WatchedFile {
  enum class Written {
    kAtOnce,   // a whole new one takes its place, or it is written and closed
    kInPlace,  // by programs that keep it open, and others open and close it only to read
  };

  std::string path;
  Written written = Written::kAtOnce;
};

// Everything that a watch over notification requests sleeps on: a timer, a change of files, of the
// clock or of the time zone, a signal to end, and a descriptor of the caller's. While it lives,
// SIGTERM and SIGINT are blocked in the thread that made it and end its wait instead.
class DeliveryWakeup {
 public:
  explicit DeliveryWakeup(std::vector<WatchedFile> files);
  ~DeliveryWakeup();
  DeliveryWakeup(const DeliveryWakeup&) = delete;
  DeliveryWakeup& operator=(const DeliveryWakeup&) = delete;

  // Looks out for changes from now on, also in folders that were made since. To be called before
  // the files are read.
  void watch();

  // Sleeps until something happened, `delay` is over (time that the machine is asleep included) or
  // `descriptor` is readable (-1: none). False when it is time to end.
  [[nodiscard]] bool sleep(Seconds delay, int descriptor);

 private:
  struct Place {
    int folder;        // as the system tells of it
    std::string name;  // of the file, or of the folder that is to come where there is none yet
    std::uint32_t changes;
  };

  bool sawChange();
  [[nodiscard]] bool concernsUs(const inotify_event& event, const std::string& name) const;

  std::vector<WatchedFile> files_;
  std::vector<Place> places_;
  bool getsNews_ = false;
  Descriptor signals_, changes_, timer_, clock_;
};

}  // namespace brevant
