#pragma once

#include <QLocale>
#include <QString>

namespace brevant {

// The text in the user's language; the text itself where there is no translation.
[[nodiscard]] QString translate(const char* text);

// The form for that many, in which %1 has become the number.
[[nodiscard]] QString translatePlural(const char* one, const char* many, int count);

// The locale of the user's messages: what LANGUAGE, LC_ALL, LC_MESSAGES and LANG say, in the order
// in which the translations are chosen. English where they say nothing.
[[nodiscard]] QLocale messagesLocale();

// Chooses the language of translate() from the environment; once, before anything is drawn.
void useMessagesOfEnvironment();

}  // namespace brevant
