// SPDX-License-Identifier: MIT
#include "cli/status_format.h"

#include "cli/status_template.h"
#include "cli/text_bars.h"

namespace brevant {
namespace {

constexpr struct {
  const char* name;
  std::string (*line)(const Status&);
} kFormats[] = {{"waybar", waybarText},
                {"i3blocks", i3blocksText},
                {"polybar", polybarText},
                {"plain", plainText}};

}  // namespace

std::vector<std::string> statusFormatNames() {
  std::vector<std::string> names;
  for (const auto& format : kFormats) names.emplace_back(format.name);
  return names;
}

std::string formatted(const Status& status, const std::string& format) {
  for (const auto& known : kFormats) {
    if (format == known.name) return known.line(status);
  }
  return templateText(format, status);
}

}  // namespace brevant
