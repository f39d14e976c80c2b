#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/terminal.h"

namespace brevant {

// Lines of columns for people: each column as wide as its widest cell on a terminal.
class TextTable {
 public:
  struct Cell {
    std::string text;  // printable
    std::optional<std::uint64_t> color = std::nullopt;
    enum class Side { kLeft, kRight } side = Side::kLeft;
  };

  void add(std::vector<Cell> row) { rows_.push_back(std::move(row)); }

  [[nodiscard]] std::string text(Colors colors) const;

 private:
  std::vector<std::vector<Cell>> rows_;
};

}  // namespace brevant
