// SPDX-License-Identifier: MIT
#include "cli/status_template.h"

#include "cli/terminal_text.h"
#include "cli/text_bars.h"
#include "cli/text_time.h"
#include "cli/words.h"

namespace brevant {
namespace {

// Of the item that is shown; null where nothing runs and nothing is paused.
using Value = std::string (*)(const Status& status, const StatusItem* item);

constexpr struct {
  std::string_view word;
  Value value;
} kFields[] = {
    {"name",
     [](const Status&, const StatusItem* item) { return item ? item->name.value_or("?") : ""; }},
    {"elapsed",
     [](const Status&, const StatusItem* item) { return item ? durationText(item->elapsed) : ""; }},
    {"total",
     [](const Status&, const StatusItem* item) { return item ? durationText(item->total) : ""; }},
    {"state", [](const Status& status, const StatusItem*) { return stateWord(status); }},
    {"color",
     [](const Status&, const StatusItem* item) {
       return item && item->color ? colorText(*item->color) : "";
     }},
    {"count",
     [](const Status& status, const StatusItem*) { return std::to_string(status.running.size()); }},
};

struct Piece {
  std::string_view text;  // as it stands in the template
  Value value = nullptr;  // of a field
  std::string problem;
};

Piece fieldAtFront(std::string_view text) {
  const std::size_t end = text.find('}');
  if (end == std::string_view::npos)
    return {text, nullptr, tr("a lone { in the template: write {{")};
  const std::string_view word = text.substr(1, end - 1);
  for (const auto& field : kFields) {
    if (field.word == word) return {text.substr(0, end + 1), field.value, ""};
  }
  return {text, nullptr, tr("there is no field {%1} for a template", word)};
}

// Takes a field, a brace or the text before the next one off the front.
Piece takePiece(std::string_view& text) {
  Piece piece;
  if (text.starts_with("{{") || text.starts_with("}}")) {
    piece.text = text.substr(1, 1);
    text.remove_prefix(2);
    return piece;
  }
  if (text.front() == '{') {
    piece = fieldAtFront(text);
  } else if (text.front() == '}') {
    piece = {text, nullptr, tr("a lone } in the template: write }}")};
  } else {
    piece.text = text.substr(0, text.find_first_of("{}"));
  }
  text.remove_prefix(piece.text.size());
  return piece;
}

}  // namespace

std::optional<std::string> templateProblem(std::string_view text) {
  if (text.find_first_of("{}") == std::string_view::npos) {
    return tr("neither a format nor a template with a field like {name}: \"%1\"", text);
  }
  while (!text.empty()) {
    if (Piece piece = takePiece(text); !piece.problem.empty()) return std::move(piece.problem);
  }
  return std::nullopt;
}

std::string templateText(std::string_view text, const Status& status) {
  const std::vector<StatusItem>& items = shownItems(status);
  const StatusItem* const item = items.empty() ? nullptr : &items.front();
  std::string line;
  while (!text.empty()) {
    const Piece piece = takePiece(text);
    line += piece.value ? piece.value(status, item) : std::string(piece.text);
  }
  return onOneLine(line) + '\n';
}

}  // namespace brevant
