// SPDX-License-Identifier: MIT
#include "cli/bash_line.h"

#include <utility>

#include "cli/shell_words.h"

namespace brevant {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

bool isOneOf(char c, std::string_view marks) {
  return marks.find(c) != std::string_view::npos;
}

}  // namespace

BashLine::BashLine(std::string_view typed, std::string_view breaks) : breaks_(breaks) {
  for (std::size_t at = 0; at < typed.size();) at = take(typed, at);
  if (!before_.empty()) before_.erase(before_.begin());  // the command itself
}

void BashLine::open(Quote quote) {
  quote_ = quote;
  inWord_ = true;
  keptOutsideQuote_ = kept_;
  kept_ = current_.size();  // while it is open, what is in it is replaced
}

// Answers where to go on.
std::size_t BashLine::take(std::string_view typed, std::size_t at) {
  if (quote_ == Quote::kNone) return takeUnquoted(typed, at);
  const char c = typed[at];
  const char next = at + 1 < typed.size() ? typed[at + 1] : '\0';
  if (c == (quote_ == Quote::kDouble ? '"' : '\'')) {
    quote_ = Quote::kNone;
    kept_ = keptOutsideQuote_;
    return at + 1;
  }
  const bool escapes = c == '\\' && (quote_ == Quote::kSpelled || isOneOf(next, "$`\"\\\n"));
  if (quote_ == Quote::kSingle || !escapes) {
    current_ += c;
    return at + 1;
  }
  if (next != '\n') current_ += quote_ == Quote::kSpelled && next == 'n' ? '\n' : next;
  return at + 2;
}

std::size_t BashLine::takeUnquoted(std::string_view typed, std::size_t at) {
  const char c = typed[at];
  const char next = at + 1 < typed.size() ? typed[at + 1] : '\0';
  if (isBlank(c)) {
    if (inWord_) before_.push_back(std::exchange(current_, {}));
    inWord_ = false;
    kept_ = 0;
    return at + 1;
  }
  if (c == '$' && next == '\'') {
    open(Quote::kSpelled);
    return at + 2;
  }
  if (c == '\'' || c == '"') {
    open(c == '"' ? Quote::kDouble : Quote::kSingle);
    return at + 1;
  }
  inWord_ = true;
  if (c == '\\') {
    if (next != '\n' && at + 1 < typed.size()) current_ += next;
    return at + 2;
  }
  current_ += c;
  if (isOneOf(c, breaks_)) kept_ = current_.size();
  return at + 1;
}

std::string BashLine::completing(std::string_view text) const {
  std::string result;
  for (const char c : text.substr(kept_)) {
    switch (quote_) {
      case Quote::kNone:
        result += escaped(c);
        break;
      case Quote::kSingle:
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
        break;
      case Quote::kDouble:  // in which "!" has no other way of being itself
        if (isOneOf(c, "$`\"\\")) result += '\\';
        result += c == '!' ? std::string(R"("\!")") : std::string(1, c);
        break;
      case Quote::kSpelled:
        result += spelledOut(c);
        break;
    }
  }
  // A quote of our own at an end would be taken for the one that opened, or that is to close.
  const char mark = quote_ == Quote::kDouble ? '"' : '\'';
  if (quote_ == Quote::kNone || result.empty()) return result;
  if (result.back() == mark) result += mark;
  return result.front() == mark ? mark + result : result;
}

}  // namespace brevant
