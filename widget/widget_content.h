// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"
#include "platform/image.h"

namespace brevant {

// The home-screen widget's timeline entry: one running activity, or with an empty guid the fact
// that none runs. What has elapsed is `duration` plus the time since `start`; the two are apart so
// that a view can count by itself without new entries.
struct WidgetContent {
  std::string guid;
  Date date;                   // when the entry was made
  std::string name;            // of the category
  ImageRef icon;               // never null
  Date start;                  // of the running stretch
  std::uint64_t duration = 0;  // seconds of the closed stretches
};

}  // namespace brevant
