// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace brevant {

// A colour by its components: grey and alpha (2), or red, green, blue and alpha (4), each from 0 to
// 1 (a component beyond that range is kept as it is).
struct Color {
  std::vector<double> components;

  static Color gray(double white, double alpha) { return {{white, alpha}}; }
  static Color rgb(double red, double green, double blue, double alpha) {
    return {{red, green, blue, alpha}};
  }

  bool operator==(const Color&) const = default;
};

}  // namespace brevant
