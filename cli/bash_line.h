// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brevant {

// A command line of bash up to the cursor. Its completion function is told of the line as it was
// typed, and what it answers replaces the part of the last word behind the last of the shell's
// word breaks, as it is: so both ways need the shell's quoting.
class BashLine {
 public:
  // `breaks` is $COMP_WORDBREAKS. Nothing in `typed` is expanded.
  BashLine(std::string_view typed, std::string_view breaks);

  // Without quotes: the words before the one at the cursor, and what is there of that one.
  [[nodiscard]] const std::vector<std::string>& before() const { return before_; }
  [[nodiscard]] const std::string& current() const { return current_; }

  // What to put in place of the typed part so that the word becomes `text`, which begins with
  // `current`.
  [[nodiscard]] std::string completing(std::string_view text) const;

 private:
  enum class Quote { kNone, kSingle, kDouble, kSpelled };  // the last is $'…'

  std::size_t take(std::string_view typed, std::size_t at);
  std::size_t takeUnquoted(std::string_view typed, std::size_t at);
  void open(Quote quote);

  const std::string breaks_;
  std::vector<std::string> before_;
  std::string current_;
  bool inWord_ = false;
  std::size_t kept_ = 0;  // of `current_`, stays as it was typed
  std::size_t keptOutsideQuote_ = 0;
  Quote quote_ = Quote::kNone;
};

}  // namespace brevant
