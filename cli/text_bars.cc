// SPDX-License-Identifier: MIT
#include "cli/text_bars.h"

#include <array>
#include <cstdio>
#include <functional>

#include "cli/json.h"
#include "cli/terminal_text.h"
#include "cli/text_time.h"

namespace brevant {
namespace {

using Escape = std::function<std::string(std::string)>;

std::string replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

std::string asItIs(std::string text) {
  return text;
}

std::string pangoEscaped(std::string text) {
  text = replaced(std::move(text), "&", "&amp;");
  text = replaced(std::move(text), "<", "&lt;");
  text = replaced(std::move(text), ">", "&gt;");
  text = replaced(std::move(text), "\"", "&quot;");
  return replaced(std::move(text), "'", "&#39;");
}

// Only "%{" begins a tag; an invisible space takes the two apart without a trace on the bar.
std::string polybarEscaped(std::string text) {
  return replaced(std::move(text), "%{", "%\u200B{");
}

std::string itemText(const StatusItem& item, const Escape& escape) {
  const std::string name = escape(onOneLine(item.name.value_or("?")));
  return item.isRunning ? name + ' ' + durationText(item.elapsed)
                        : "⏸ " + name + ' ' + durationText(item.total);
}

std::string lineText(const std::vector<StatusItem>& items, const Escape& escape) {
  std::string text;
  for (const StatusItem& item : items) text += (text.empty() ? "" : " · ") + itemText(item, escape);
  return text;
}

std::string tooltipText(const Status& status) {
  std::string text;
  for (const auto* list : {&status.running, &status.paused}) {
    for (const StatusItem& item : *list) {
      text += (text.empty() ? "" : "\n") + itemText(item, pangoEscaped);
      if (item.total != item.elapsed && item.isRunning) {
        text += " (" + durationText(item.total) + ')';
      }
    }
  }
  return text;
}

}  // namespace

const std::vector<StatusItem>& shownItems(const Status& status) {
  return status.running.empty() ? status.paused : status.running;
}

std::string stateWord(const Status& status) {
  if (!status.running.empty()) return "running";
  return status.paused.empty() ? "idle" : "paused";
}

std::string colorText(std::uint64_t color) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(color & 0xFFFFFFU));
  return text.data();
}

std::string waybarText(const Status& status) {
  const std::string kind = stateWord(status);
  return printed({{"text", lineText(shownItems(status), pangoEscaped)},
                  {"alt", kind},
                  {"tooltip", tooltipText(status)},
                  {"class", kind}});
}

std::string i3blocksText(const Status& status) {
  Json block{{"full_text", lineText(shownItems(status), asItIs)}};
  if (shownItems(status).empty()) return printed(block);
  const StatusItem& first = shownItems(status).front();
  block["short_text"] = durationText(first.isRunning ? first.elapsed : first.total);
  if (first.color) block["color"] = colorText(*first.color);
  block["markup"] = "none";
  return printed(block);
}

std::string polybarText(const Status& status) {
  std::string text;
  for (const StatusItem& item : shownItems(status)) {
    if (!text.empty()) text += " · ";
    const std::string one = itemText(item, polybarEscaped);
    text += item.color ? "%{F" + colorText(*item.color) + '}' + one + "%{F-}" : one;
  }
  return text + '\n';
}

std::string plainText(const Status& status) {
  return lineText(status.running, asItIs) + '\n';
}

}  // namespace brevant
