// SPDX-License-Identifier: MIT
#include "cli/words.h"

#include <libintl.h>

#include "platform/linux/linux_platform.h"
#include "platform/linux/translations.h"

namespace brevant {
namespace {

// Of the process, as gettext's choice of a language is.
bool& speaksEnglish() {
  static bool english = wantsEnglish();
  return english;
}

// English is in the sources already, and opens no catalogue.
bool needsTranslation(const char* text) {
  if (speaksEnglish() || *text == '\0') return false;
  static const bool opened = (openTranslations(resourcesBesideProgram() + "/locale"), true);
  return opened;
}

}  // namespace

const char* lookedUp(const char* text) {
  return needsTranslation(text) ? dgettext(kTranslations, text) : text;
}

const char* lookedUp(const char* one, const char* many, std::size_t count) {
  if (needsTranslation(one)) return dngettext(kTranslations, one, many, count);
  return count == 1 ? one : many;
}

std::string filled(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isPlace =
        text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
    if (!isPlace) {
      result += text[at];
      continue;
    }
    const auto place = static_cast<std::size_t>(text[++at] - '1');
    if (place < values.size()) result += values.begin()[place];
  }
  return result;
}

void keepEnglish() {
  speaksEnglish() = true;
}

}  // namespace brevant
