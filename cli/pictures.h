// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include "cli/answer.h"
#include "cli/json.h"
#include "platform/image_codec.h"

namespace brevant {

// The pictures of one answer, each encoded once however often it is shown.
class Pictures {
 public:
  explicit Pictures(const ImageCodec& codec) : codec_(codec) {}

  // What stands for the picture's PNG in the JSON until that is printed; null when it cannot be
  // encoded.
  Json png(const ImageRef& image);

  // One line, with each picture in its place.
  Answer printed(const Json& json) const;

 private:
  void print(const Json& json, Answer& answer) const;

  const ImageCodec& codec_;
  std::vector<std::pair<ImageRef, SharedBytes>> encoded_;
};

}  // namespace brevant
