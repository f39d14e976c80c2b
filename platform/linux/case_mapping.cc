// SPDX-License-Identifier: MIT
#include "platform/linux/case_mapping.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <unicase.h>
#include <unistr.h>

namespace brevant {
namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

template <typename Unit>
using Units = std::unique_ptr<Unit[], Free>;

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

std::string asciiLowercased(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

// What is no UTF-8 becomes U+FFFD, which the mapping itself would refuse.
std::u32string decoded(std::string_view utf8) {
  std::u32string text;
  const auto* next = reinterpret_cast<const std::uint8_t*>(utf8.data());
  for (std::size_t left = utf8.size(); left > 0;) {
    ucs4_t character = 0;
    const int size = u8_mbtouc(&character, next, left);
    text += static_cast<char32_t>(character);
    next += size;
    left -= static_cast<std::size_t>(size);
  }
  return text;
}

// Without a language, so that the same names match whoever asks. Null when memory is short.
Units<std::uint8_t> lowercasedUnits(const std::u32string& text, std::size_t& size) {
  std::size_t lowerSize = 0;
  const Units<std::uint32_t> lower(u32_tolower(reinterpret_cast<const std::uint32_t*>(text.data()),
                                               text.size(), nullptr, nullptr, nullptr, &lowerSize));
  if (!lower) return nullptr;
  return Units<std::uint8_t>(u32_to_u8(lower.get(), lowerSize, nullptr, &size));
}

class UnicodeCaseMapping : public CaseMapping {
 public:
  std::string lowercased(std::string_view utf8) const override {
    if (isAscii(utf8)) return asciiLowercased(utf8);
    std::size_t size = 0;
    const Units<std::uint8_t> lower = lowercasedUnits(decoded(utf8), size);
    if (!lower) return asciiLowercased(utf8);
    return {reinterpret_cast<const char*>(lower.get()), size};
  }
};

}  // namespace

std::unique_ptr<CaseMapping> makeCaseMapping() {
  return std::make_unique<UnicodeCaseMapping>();
}

}  // namespace brevant
