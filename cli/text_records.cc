// SPDX-License-Identifier: MIT
#include "cli/text_records.h"

#include <algorithm>

#include "cli/terminal_text.h"
#include "cli/text_table.h"
#include "cli/text_time.h"
#include "cli/words.h"

namespace brevant {
namespace {

using Cell = TextTable::Cell;

constexpr const char* kRunning = "●";
constexpr const char* kPaused = "○";
constexpr const char* kGroup = "▾";

void add(TextTable& table, const char* mark, const StatusItem& item, Guids guids,
         const std::string& since) {
  std::vector<Cell> row{{mark, item.color}, {nameText(item)}};
  if (guids == Guids::kShown) row.push_back({printable(item.guid.value_or("-"))});
  row.push_back(
      {item.isRunning ? durationText(item.elapsed) : tr("paused"), {}, Cell::Side::kRight});
  row.push_back({durationText(item.total), {}, Cell::Side::kRight});
  row.push_back({since.empty() ? tr("in all") : tr("in all, since %1", since)});
  table.add(std::move(row));
}

std::string text(const Status& status, Guids guids, Date now, const Calendar& calendar,
                 Colors colors) {
  TextTable table;
  for (const StatusItem& item : status.running) {
    add(table, kRunning, item, guids, timeText(item.start, now, calendar));
  }
  for (const StatusItem& item : status.paused) add(table, kPaused, item, guids, "");
  return table.text(colors);
}

}  // namespace

std::string nameText(const std::optional<std::string>& name) {
  return name ? printable(*name) : tr("(no name)");
}

std::string nameText(const StatusItem& item) {
  return item.hasCategory ? nameText(item.name) : tr("(no category)");
}

std::string statusText(const Status& status, Date now, const Calendar& calendar, Colors colors) {
  return text(status, Guids::kHidden, now, calendar, colors);
}

std::string activitiesText(const Status& status, Date now, const Calendar& calendar,
                           Colors colors) {
  return text(status, Guids::kShown, now, calendar, colors);
}

std::string categoriesText(const TypeList& types, Guids guids, Colors colors) {
  TextTable table;
  for (const TypeRef& type : types) {
    const bool isGroup = dynamic_cast<const WidgetGroup*>(type.get()) != nullptr;
    constexpr std::int32_t kDeepest = 20;  // a terminal is only so wide
    const std::string indent(
        static_cast<std::size_t>(std::clamp(type->nestingLevel, 0, kDeepest)) * 2, ' ');
    std::vector<Cell> row{{isGroup ? kGroup : kRunning, type->color},
                          {indent + nameText(type->name)}};
    if (guids == Guids::kShown) row.push_back({printable(type->guid.value_or("-"))});
    table.add(std::move(row));
  }
  return table.text(colors);
}

}  // namespace brevant
