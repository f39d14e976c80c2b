// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

namespace brevant {

// The text in the user's language; the text itself where there is no translation.
[[nodiscard]] QString translate(const char* text);

// The form for that many, in which %1 has become the number.
[[nodiscard]] QString translatePlural(const char* one, const char* many, int count);

// The locale of the user's messages: of what LANGUAGE, LC_ALL, LC_MESSAGES and LANG name the first
// that there is a translation for, so that texts and layout agree. English where there is none.
[[nodiscard]] QLocale messagesLocale();

// Chooses the language of translate() from the environment, before anything is drawn; again once
// there is an application, which takes the environment's locale itself.
void useMessagesOfEnvironment();

}  // namespace brevant
