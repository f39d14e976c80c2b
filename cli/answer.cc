// SPDX-License-Identifier: MIT
#include "cli/answer.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "cli/standard_streams.h"

namespace brevant {
namespace {

std::string base64(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text((bytes.size() + 2) / 3 * 4, '=');
  char* to = text.data();
  for (; !bytes.empty(); bytes = bytes.subspan(std::min<std::size_t>(3, bytes.size()))) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size());
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) group = group << 8U | (i < count ? bytes[i] : 0U);
    for (std::size_t i = 0; i <= count; ++i) to[i] = kDigits[group >> (18U - 6U * i) & 63U];
    to += 4;
  }
  return text;
}

struct Writer {
  bool operator()(const std::string& text) const { return writeAnswer(text); }

  bool operator()(const SharedBytes& bytes) const {
    constexpr std::size_t kBlock = 49'152;  // whole groups of three
    for (std::span<const std::uint8_t> rest(*bytes); !rest.empty();) {
      const auto block = rest.first(std::min(kBlock, rest.size()));
      if (!writeAnswer(base64(block))) return false;
      rest = rest.subspan(block.size());
    }
    return true;
  }
};

}  // namespace

void Answer::add(std::string_view text) {
  if (pieces_.empty() || !std::holds_alternative<std::string>(pieces_.back())) {
    pieces_.emplace_back(std::string());
  }
  std::get<std::string>(pieces_.back()) += text;
}

void Answer::add(Answer answer) {
  std::move(answer.pieces_.begin(), answer.pieces_.end(), std::back_inserter(pieces_));
}

void Answer::addBase64(SharedBytes bytes) {
  pieces_.emplace_back(std::move(bytes));
}

bool Answer::write() const {
  return std::all_of(pieces_.begin(), pieces_.end(),
                     [](const auto& piece) { return std::visit(Writer{}, piece); }) &&
         writeAnswer("");
}

}  // namespace brevant
