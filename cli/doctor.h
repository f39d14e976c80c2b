// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace brevant {

class Context;

// What one check came to.
struct Finding {
  enum class State { kGood, kWarning, kProblem };

  std::string check;
  State state = State::kGood;
  std::string message;
  std::string advice;  // what to do; empty where nothing is to be done
};

// "ok", "warning" or "problem".
std::string stateName(Finding::State state);

// Looks at everything that the program depends on, without changing any of it.
std::vector<Finding> examine(Context& context);

}  // namespace brevant
