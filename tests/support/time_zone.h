// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

namespace brevant::test {

// The process's time zone for as long as the object lives.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* const before = std::getenv("TZ")) before_ = before;
    set(zone);
  }
  ~TimeZone() { set(before_.c_str()); }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  static void set(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }

  std::string before_ = "UTC";
};

}  // namespace brevant::test
