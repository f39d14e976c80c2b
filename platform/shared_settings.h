// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/property_value.h"
#include "platform/save_outcome.h"

namespace brevant {

// The settings store of the app group, shared with the main application's process. Any thread may
// call it. A read sees a write of this process at once and another process's within 10 ms; reading
// one key in a tight loop costs no system call each time.
class SharedSettings {
 public:
  virtual ~SharedSettings() = default;

  // Null when nothing is stored, or when the store cannot be read. The value is a snapshot.
  virtual std::shared_ptr<const PropertyValue> object(const std::string& key) const = 0;

  // Why what is stored could not be read, so that every key reads as absent; empty otherwise.
  virtual std::string problem() const = 0;

  // Absent keys read as false and 0.
  virtual bool boolean(const std::string& key) const = 0;
  virtual std::int64_t integer(const std::string& key) const = 0;

  // Kept in memory until `synchronize`, though reads of this process see it at once.
  virtual void setBool(bool value, const std::string& key) = 0;

  // Merges what was set into the stored settings, durably, and keeps what others store meanwhile.
  // May wait 2 seconds for their lock. What is not saved is kept for the next call. A log line
  // tells, too, what went wrong.
  virtual SaveOutcome synchronize() = 0;
};

}  // namespace brevant
