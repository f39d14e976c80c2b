// SPDX-License-Identifier: MIT
#include "tests/support/view_outline.h"

#include "cli/view_json.h"

namespace brevant::test {
namespace {

using Json = nlohmann::ordered_json;

std::string flat(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_object()) return value.dump();
  std::string text;
  for (const auto& [key, each] : value.items()) {
    text += (text.empty() ? "" : " ") + key + " " + flat(each);
  }
  return text;
}

std::string modifierText(const Json& modifier) {
  const auto only = modifier.items().begin();
  return " ." + only.key() + (only.value() == true ? "" : "(" + flat(only.value()) + ")");
}

std::string lines(const Json& node, const std::string& indent) {
  std::string line = indent + node.at("view").get<std::string>();
  std::string children;
  for (const auto& [key, value] : node.items()) {
    if (key == "view" || key == "modifiers" || key == "image") continue;
    if (key == "children") {
      for (const Json& child : value) children += lines(child, indent + "  ");
    } else if (value.contains("view")) {
      children += lines(value, indent + "  ");
    } else {
      line += " " + (key == "text" ? value.dump() : flat(value));
    }
  }
  if (node.contains("modifiers")) {
    for (const Json& modifier : node["modifiers"]) line += modifierText(modifier);
  }
  return line + "\n" + children;
}

}  // namespace

std::string outline(const View& view) {
  return lines(archivedView(view, [](const ImageRef&) { return nullptr; }), "");
}

}  // namespace brevant::test
