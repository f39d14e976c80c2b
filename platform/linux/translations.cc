// SPDX-License-Identifier: MIT
#include "platform/linux/translations.h"

#include <clocale>
#include <cstdlib>
#include <libintl.h>
#include <mutex>

namespace brevant {
namespace {

std::string firstSet(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* const value = std::getenv(name);
    if (value && *value != '\0') return value;
  }
  return "";
}

// The user's languages, the preferred first, separated by colons. English stands last, so that a
// text is never shown as its bare key.
std::string preferredLanguages() {
  const std::string locale = firstSet({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale == "C" || locale == "POSIX") return "en";
  const std::string languages = firstSet({"LANGUAGE"});
  if (!languages.empty()) return languages + ":en";
  return locale.empty() || locale.starts_with("C.") ? "en" : locale + ":en";
}

}  // namespace

bool wantsEnglish() {
  const std::string languages = preferredLanguages();
  return languages.substr(0, languages.find_first_of("_.@:")) == "en";
}

// The C library translates only in a locale that the system has generated, and many have none.
// C.UTF-8 is built in, and in it $LANGUAGE decides alone.
void openTranslations(const std::string& folder) {
  static std::once_flag chosen;
  std::call_once(chosen, [] {
    setenv("LANGUAGE", preferredLanguages().c_str(), 1);
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    bind_textdomain_codeset("libc", "UTF-8");
  });
  bindtextdomain(kTranslations, folder.c_str());
  bind_textdomain_codeset(kTranslations, "UTF-8");
}

}  // namespace brevant
