// SPDX-License-Identifier: MIT
#include "cli/pictures.h"

#include <algorithm>

namespace brevant {
namespace {

// A binary value, which no answer has otherwise: empty, and numbered by its subtype.
Json placeholder(std::size_t number) {
  return Json::binary({}, number);
}

}  // namespace

Json Pictures::png(const ImageRef& image) {
  auto known = std::find_if(encoded_.begin(), encoded_.end(), [&image](const auto& each) {
    return each.first == image || *each.first == *image;
  });
  if (known == encoded_.end()) {
    auto png = codec_.encodePng(*image);
    if (!png) return nullptr;
    auto bytes = std::make_shared<const std::vector<std::uint8_t>>(std::move(*png));
    known = encoded_.insert(known, {image, std::move(bytes)});
  }
  return placeholder(static_cast<std::size_t>(known - encoded_.begin()));
}

Answer Pictures::printed(const Json& json) const {
  Answer answer;
  print(json, answer);
  answer.add("\n");
  return answer;
}

void Pictures::print(const Json& json, Answer& answer) const {
  if (json.is_binary()) {
    answer.add("\"");
    answer.addBase64(encoded_[json.get_binary().subtype()].second);
    answer.add("\"");
  } else if (json.is_structured()) {
    answer.add(json.is_object() ? "{" : "[");
    const char* separator = "";
    for (const auto& [key, value] : json.items()) {
      answer.add(std::exchange(separator, ","));
      if (json.is_object()) answer.add(compact(key) + ':');
      print(value, answer);
    }
    answer.add(json.is_object() ? "}" : "]");
  } else {
    answer.add(compact(json));
  }
}

}  // namespace brevant
