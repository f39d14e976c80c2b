// SPDX-License-Identifier: MIT
#include "cli/text_table.h"

#include <algorithm>

#include "cli/terminal_text.h"
#include "cli/utf8.h"

namespace brevant {
namespace {

constexpr std::size_t kGap = 2;

// The first line of `text`, which is taken off: as many words as fit, or what fits of the first.
std::string takeLine(std::string_view& text, std::size_t width) {
  std::string_view rest = text;
  std::string line;
  std::size_t lastSpace = std::string::npos;
  std::size_t taken = 0;
  while (!rest.empty()) {
    std::string_view next = rest;
    std::string letter;
    appendUtf8(letter, takeCodePoint(next));
    const bool isSpace = letter == " ";
    if (taken + displayWidth(letter) > width) {
      if (isSpace) break;
      if (lastSpace != std::string::npos) line.resize(lastSpace);
      break;
    }
    if (isSpace && line.find_first_not_of(' ') != std::string::npos) lastSpace = line.size();
    taken += displayWidth(letter);
    line += letter;
    rest = next;
  }
  text.remove_prefix(std::min(text.size(), std::max<std::size_t>(line.size(), 1)));
  if (!text.empty()) text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return line;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  do lines.push_back(takeLine(text, width));
  while (!text.empty());
  return lines;
}

// Puts a text at a place of one of the lines, which grow as they must.
void put(std::vector<std::string>& lines, std::vector<std::size_t>& ends, std::size_t at,
         std::size_t left, const std::string& shown, std::size_t width) {
  lines.resize(std::max(lines.size(), at + 1));
  ends.resize(lines.size());
  lines[at] += std::string(left - std::min(left, ends[at]), ' ') + shown;
  ends[at] = left + width;
}

}  // namespace

std::vector<TextTable::Column> TextTable::placed(std::size_t columns) const {
  std::vector<Column> result;
  for (const auto& row : rows_) {
    result.resize(std::max(result.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      result[i].width = std::max(result[i].width, displayWidth(row[i].text));
    }
  }
  constexpr std::size_t kLeastForText = 24;  // less is better begun below
  std::size_t line = 0;
  std::size_t left = 0;
  for (Column& column : result) {
    const std::size_t room = left < columns ? columns - left : 0;
    const bool isLast = &column == &result.back();
    if (column.width > room && left > 0 && !(isLast && room >= kLeastForText)) {
      ++line;
      left = kGap;
    }
    column = {line, left, std::min(column.width, columns - left)};
    left += column.width + kGap;
  }
  return result;
}

std::string TextTable::text(Colors colors, std::size_t columns) const {
  const std::vector<Column> layout = placed(columns);
  std::string result;
  for (const auto& row : rows_) {
    std::vector<std::string> lines;
    std::vector<std::size_t> ends;
    std::size_t first = 0;  // of those that the columns of one line fill
    for (std::size_t i = 0; i < row.size(); ++i) {
      const auto& [line, left, width] = layout[i];
      if (i > 0 && line != layout[i - 1].line) first = lines.size();
      const Cell& cell = row[i];
      std::size_t at = first;
      for (const std::string& part : wrapped(cell.text, width)) {
        const std::size_t used = displayWidth(part);
        const std::size_t from = cell.side == Cell::Side::kRight ? left + width - used : left;
        if (used > 0) put(lines, ends, at, from, painted(part, cell.color, colors), used);
        ++at;
      }
    }
    for (const std::string& line : lines) result += line + '\n';
    if (lines.empty()) result += '\n';
  }
  return result;
}

}  // namespace brevant
