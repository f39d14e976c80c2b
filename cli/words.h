// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// The command line's own words in the user's language. A text is a whole sentence with places %1 to
// %9, which a translation may put in another order. What programs read is never translated: JSON,
// names of commands, options and states.
namespace brevant {

// The text in the user's language, still with its places.
const char* lookedUp(const char* text);
const char* lookedUp(const char* one, const char* many, std::size_t count);

// With each place filled; a value that looks like a place stays as it is.
std::string filled(std::string_view text, std::initializer_list<std::string_view> values);

template <typename... Values>
std::string tr(const char* text, const Values&... values) {
  return filled(lookedUp(text), {std::string_view(values)...});
}

// In the form that the language has for so many. The number fills a place like any other value.
template <typename... Values>
std::string trPlural(const char* one, const char* many, std::size_t count,
                     const Values&... values) {
  return filled(lookedUp(one, many, count), {std::string_view(values)...});
}

// A text of a table, for the translators; `tr` looks it up when it is told.
constexpr const char* marked(const char* text) {
  return text;
}

// From now on the texts are told as they stand in the sources: for answers that hold some and that
// programs read.
void keepEnglish();

}  // namespace brevant
