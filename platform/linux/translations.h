// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// The texts of the program in the user's languages, as gettext's catalogues have them.
namespace brevant {

inline constexpr const char* kTranslations = "brevant";  // the catalogues' domain

// Whether English is the language that the environment asks for first: the texts in the sources
// then need no translation.
bool wantsEnglish();

// Opens the catalogues in that folder; afterwards `dgettext` and the C library's own messages
// answer in UTF-8 in the language that the environment asked for at first. May be called again.
void openTranslations(const std::string& folder);

}  // namespace brevant
