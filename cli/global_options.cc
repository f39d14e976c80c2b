// SPDX-License-Identifier: MIT
#include "cli/global_options.h"

#include "cli/values.h"

namespace brevant {

std::vector<std::string> globalWords(const GlobalOptions& options, const std::string& container) {
  std::vector<std::string> words{"--system-version", options.systemVersion, "--color-scheme",
                                 options.colorScheme == ColorScheme::kDark ? "dark" : "light"};
  if (!container.empty()) words.insert(words.end(), {"--container", container});
  if (options.now) words.insert(words.end(), {"--now", exactText(*options.now)});
  if (options.isiOSAppOnMac) words.emplace_back("--ios-app-on-mac");
  return words;
}

}  // namespace brevant
