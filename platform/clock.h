// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

namespace brevant {

// The only source of time. Implementations are stateless for their callers: any thread may ask at
// any moment, and asking never fails.
class Clock {
 public:
  virtual ~Clock() = default;

  // The wall-clock time; it may step and may stand still.
  virtual Date now() const = 0;

  // Seconds since some fixed moment; never steps and never stands still, so that waits end.
  virtual double monotonicSeconds() const = 0;
};

}  // namespace brevant
