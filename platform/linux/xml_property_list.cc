// SPDX-License-Identifier: MIT
#include "platform/linux/xml_property_list.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace brevant {
namespace {

constexpr std::string_view kDateTag = "<date>";
constexpr std::string_view kIntegerTag = "<integer>";
constexpr std::size_t kYearDigits = 4;

// How many zeros the date that begins there lacks.
std::size_t missingDigits(std::string_view date) {
  const std::size_t digits = date.find('-');
  return digits < kYearDigits ? kYearDigits - digits : 0;
}

std::vector<std::string_view> textsOf(std::string_view tag, std::string_view xml) {
  std::vector<std::string_view> texts;
  for (std::size_t at = 0; (at = xml.find(tag, at)) != std::string_view::npos;) {
    at += tag.size();
    texts.push_back(xml.substr(at, xml.find('<', at) - at));
  }
  return texts;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text = text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Without a plus sign and leading zeros; a hexadecimal number that fits 64 bits is decimal.
std::string plainInteger(std::string_view text) {
  text = trimmed(text);
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with("0x") || text.starts_with("0X")) {
    std::uint64_t number = 0;
    const auto end = std::from_chars(text.data() + 2, text.data() + text.size(), number, 16);
    if (end.ec == std::errc()) return (isNegative ? "-" : "") + std::to_string(number);
  }
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size() - (text.empty() ? 0 : 1)));
  return (isNegative && text != "0" ? "-" : "") + std::string(text);
}

}  // namespace

std::string withPlainLineEnds(std::string_view xml) {
  std::string plain;
  plain.reserve(xml.size());
  for (std::size_t i = 0; i < xml.size(); ++i) {
    if (xml[i] != '\r') {
      plain += xml[i];
    } else if (!xml.substr(i + 1).starts_with('\n')) {
      plain += '\n';
    }
  }
  return plain;
}

std::string strictXml(std::string_view written) {
  std::string strict;
  for (std::size_t i = 0; i < written.size(); ++i) {
    if (written[i] == '\r') {
      strict += "&#13;";
      continue;
    }
    strict += written[i];
    const std::string_view rest = written.substr(i + 1);
    if (written[i] == '>' && written.substr(0, i + 1).ends_with(kDateTag)) {
      strict.append(missingDigits(rest), '0');
    }
  }
  return strict;
}

std::vector<std::string> datesOfXml(std::string_view xml) {
  std::vector<std::string> dates;
  for (const std::string_view date : textsOf(kDateTag, xml)) {
    dates.push_back(std::string(missingDigits(date), '0').append(date));
  }
  return dates;
}

std::vector<std::string> integersOfXml(std::string_view xml) {
  std::vector<std::string> integers;
  for (const std::string_view text : textsOf(kIntegerTag, xml)) {
    integers.push_back(plainInteger(text));
  }
  return integers;
}

}  // namespace brevant
