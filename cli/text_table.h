// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/terminal.h"

namespace brevant {

// Lines of columns for people: each column as wide as its widest cell on a terminal. Where that is
// too wide, columns go on below, indented, and long texts over several lines: nothing is cut off.
class TextTable {
 public:
  struct Cell {
    std::string text;  // printable
    std::optional<std::uint64_t> color = std::nullopt;
    enum class Side { kLeft, kRight } side = Side::kLeft;
  };

  void add(std::vector<Cell> row) { rows_.push_back(std::move(row)); }

  [[nodiscard]] std::string text(Colors colors, std::size_t columns = columnsOfStdout()) const;

 private:
  // Where a column stands.
  struct Column {
    std::size_t line = 0;
    std::size_t left = 0;
    std::size_t width = 0;
  };
  [[nodiscard]] std::vector<Column> placed(std::size_t columns) const;

  std::vector<std::vector<Cell>> rows_;
};

}  // namespace brevant
