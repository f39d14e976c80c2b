// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/image.h"

namespace brevant {

// The extension's own resources. Thread-safe.
class Bundle {
 public:
  virtual ~Bundle() = default;

  // A resource image by file name, with or without ".png". A name without a scale suffix is
  // answered by the best scale that exists (3, then 2, then 1); a name with one ("a@2x.png") by
  // exactly that file. Null when there is none.
  virtual ImageRef imageNamed(const std::string& name) const = 0;

  // The text for `key` in the user's language; the key itself where there is no translation.
  virtual std::string localizedString(const std::string& key) const = 0;

  // The same for a text with one number in it, in the plural form that `number` takes. The
  // placeholder stays in the text.
  virtual std::string localizedPlural(const std::string& key, long number) const = 0;
};

}  // namespace brevant
