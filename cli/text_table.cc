#include "cli/text_table.h"

#include <algorithm>

#include "cli/terminal_text.h"

namespace brevant {

std::string TextTable::text(Colors colors) const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], displayWidth(row[i].text));
    }
  }
  std::string result;
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Cell& cell = row[i];
      const std::string gap(widths[i] - displayWidth(cell.text), ' ');
      const std::string shown = painted(cell.text, cell.color, colors);
      if (i > 0) line += "  ";
      line += cell.side == Cell::Side::kRight ? gap + shown : shown + gap;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    result += line + '\n';
  }
  return result;
}

}  // namespace brevant
