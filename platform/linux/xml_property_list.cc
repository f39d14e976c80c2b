// SPDX-License-Identifier: MIT
#include "platform/linux/xml_property_list.h"

namespace brevant {
namespace {

constexpr std::string_view kDateTag = "<date>";
constexpr std::size_t kYearDigits = 4;

// How many zeros the date that begins there lacks.
std::size_t missingDigits(std::string_view date) {
  const std::size_t digits = date.find('-');
  return digits < kYearDigits ? kYearDigits - digits : 0;
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
  for (std::size_t at = 0; (at = xml.find(kDateTag, at)) != std::string_view::npos;) {
    at += kDateTag.size();
    const std::string_view date = xml.substr(at, xml.find('<', at) - at);
    dates.push_back(std::string(missingDigits(date), '0').append(date));
  }
  return dates;
}

}  // namespace brevant
