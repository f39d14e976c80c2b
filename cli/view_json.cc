// SPDX-License-Identifier: MIT
#include "cli/view_json.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

// --- Names of the enumerators ---

std::string_view name(TextStyle style) {
  switch (style) {
    case TextStyle::kLargeTitle:
      return "largeTitle";
    case TextStyle::kTitle:
      return "title";
    case TextStyle::kTitle2:
      return "title2";
    case TextStyle::kTitle3:
      return "title3";
    case TextStyle::kHeadline:
      return "headline";
    case TextStyle::kBody:
      return "body";
    case TextStyle::kCallout:
      return "callout";
    case TextStyle::kSubheadline:
      return "subheadline";
    case TextStyle::kFootnote:
      return "footnote";
    case TextStyle::kCaption:
      return "caption";
  }
  return "";
}

std::string_view name(FontWeight weight) {
  switch (weight) {
    case FontWeight::kRegular:
      return "regular";
    case FontWeight::kMedium:
      return "medium";
    case FontWeight::kSemibold:
      return "semibold";
    case FontWeight::kBold:
      return "bold";
  }
  return "";
}

std::string_view name(DateStyle style) {
  switch (style) {
    case DateStyle::kTimer:
      return "timer";
    case DateStyle::kRelative:
      return "relative";
    case DateStyle::kTime:
      return "time";
  }
  return "";
}

std::string_view name(VerticalAlignment alignment) {
  switch (alignment) {
    case VerticalAlignment::kTop:
      return "top";
    case VerticalAlignment::kCenter:
      return "center";
    case VerticalAlignment::kBottom:
      return "bottom";
  }
  return "";
}

// The alignments of vertical stacks, frames and texts share their names.
template <typename Horizontal>
std::string_view name(Horizontal alignment) {
  switch (alignment) {
    case Horizontal::kLeading:
      return "leading";
    case Horizontal::kCenter:
      return "center";
    case Horizontal::kTrailing:
      return "trailing";
  }
  return "";
}

// --- Values ---

// Whole numbers are written without a fraction.
Json number(double value) {
  constexpr double kExact = 9007199254740992.0;  // 2^53
  if (std::abs(value) <= kExact && std::trunc(value) == value) {
    return static_cast<std::int64_t>(value);
  }
  return value;
}

Json points(double value) {
  return std::isinf(value) ? Json("infinity") : number(value);
}

Json points(const Inset& inset) {
  return inset.points ? number(*inset.points) : Json("default");
}

template <typename Value>
void putIfSet(Json& json, const char* key, const std::optional<Value>& value) {
  if (value) json[key] = points(*value);
}

Json archived(const Color& color) {
  const std::vector<double>& parts = color.components;
  const bool grey = parts.size() < 4;
  return Json::object({{"red", number(parts.at(0))},
                       {"green", number(parts.at(grey ? 0 : 1))},
                       {"blue", number(parts.at(grey ? 0 : 2))},
                       {"alpha", number(parts.back())}});
}

// --- Modifiers: each answers an object of its one key ---

struct ModifierArchiver {
  Json operator()(const Font& font) const {
    if (const auto* style = std::get_if<TextStyle>(&font.value)) {
      return entry("font", Json::object({{"style", name(*style)}}));
    }
    const auto& system = std::get<SystemFont>(font.value);
    return entry("font", Json::object({{"size", number(system.size)},
                                       {"weight", name(system.weight)},
                                       {"design", "default"}}));
  }
  Json operator()(FontWeight weight) const { return entry("fontWeight", name(weight)); }
  Json operator()(const Bold&) const { return entry("bold", true); }
  Json operator()(const MonospacedDigit&) const { return entry("monospacedDigit", true); }
  Json operator()(const Resizable&) const { return entry("resizable", true); }
  Json operator()(const InvalidatableContent&) const { return entry("invalidatableContent", true); }
  Json operator()(const LineLimit& limit) const { return entry("lineLimit", limit.lines); }
  Json operator()(const MinimumScaleFactor& scale) const {
    return entry("minimumScaleFactor", number(scale.factor));
  }
  Json operator()(TextAlignment alignment) const {
    return entry("multilineTextAlignment", name(alignment));
  }
  Json operator()(const Frame& frame) const {
    Json json = Json::object();
    putIfSet(json, "width", frame.width);
    putIfSet(json, "height", frame.height);
    putIfSet(json, "maxWidth", frame.maxWidth);
    putIfSet(json, "maxHeight", frame.maxHeight);
    json["alignment"] = name(frame.alignment);
    return entry("frame", std::move(json));
  }
  Json operator()(const Padding& padding) const {
    Json json = Json::object();
    putIfSet(json, "top", padding.top);
    putIfSet(json, "leading", padding.leading);
    putIfSet(json, "bottom", padding.bottom);
    putIfSet(json, "trailing", padding.trailing);
    return entry("padding", std::move(json));
  }
  Json operator()(const Background& background) const {
    const Json shape = Json::object(
        {{"cornerRadius", number(background.shape.cornerRadius)}, {"style", "continuous"}});
    return entry("background",
                 Json::object({{"roundedRectangle", shape}, {"fill", archived(background.fill)}}));
  }
  Json operator()(const ContainerBackground& background) const {
    return entry("containerBackground", Json::object({{"color", "clear"},
                                                      {"placement", "widget"},
                                                      {"alignment", name(background.alignment)}}));
  }
  Json operator()(ButtonStyle) const { return entry("buttonStyle", "plain"); }
  Json operator()(const ForegroundColor& foreground) const {
    return entry("foregroundColor", archived(foreground.color));
  }
  Json operator()(const Opacity& opacity) const { return entry("opacity", number(opacity.value)); }

 private:
  static Json entry(const char* key, Json value) { return Json::object({{key, std::move(value)}}); }
};

// --- Nodes ---

struct NodeArchiver {
  const PixelArchiver& pixels;

  Json operator()(const Text& text) const {
    return Json::object({{"view", "Text"}, {"text", text.text}});
  }
  Json operator()(const DateText& text) const {
    return Json::object(
        {{"view", "Text"}, {"date", secondsSince1970(text.date)}, {"style", name(text.style)}});
  }
  Json operator()(const Picture& picture) const {
    Json json = Json::object({{"view", "Image"}, {"image", archivedImage(picture.image, pixels)}});
    if (!picture.image->name.empty()) json["name"] = picture.image->name;
    return json;
  }
  Json operator()(const SystemImage& image) const {
    return Json::object({{"view", "Image"}, {"systemName", image.name}});
  }
  Json operator()(const Label& label) const {
    return Json::object(
        {{"view", "Label"}, {"title", child(label.title)}, {"icon", child(label.icon)}});
  }
  Json operator()(const HStack& stack) const { return archivedStack("HStack", stack); }
  Json operator()(const VStack& stack) const { return archivedStack("VStack", stack); }
  Json operator()(const Spacer&) const { return Json::object({{"view", "Spacer"}}); }
  Json operator()(const Button& button) const {
    const IntentValue& intent = button.intent;
    const Json archivedIntent = Json::object({{"name", intent.name},
                                              {"activityId", intent.activityId},
                                              {"operation", intent.operation}});
    return Json::object(
        {{"view", "Button"}, {"intent", archivedIntent}, {"label", child(button.label)}});
  }
  Json operator()(const Link& link) const {
    return Json::object(
        {{"view", "Link"}, {"destination", link.destination}, {"label", child(link.label)}});
  }

 private:
  Json child(const Child& view) const { return archivedView(*view, pixels); }

  template <typename Stack>
  Json archivedStack(const char* type, const Stack& stack) const {
    Json children = Json::array();
    for (const View& each : stack.children) children.push_back(archivedView(each, pixels));
    return Json::object({{"view", type},
                         {"alignment", name(stack.layout.alignment)},
                         {"spacing", number(stack.layout.spacing)},
                         {"children", std::move(children)}});
  }
};

}  // namespace

Json archivedView(const View& view, const PixelArchiver& pixels) {
  Json json = std::visit(NodeArchiver{pixels}, view.node);
  if (view.modifiers.empty()) return json;
  Json& modifiers = json["modifiers"] = Json::array();
  for (const Modifier& modifier : view.modifiers) {
    modifiers.push_back(std::visit(ModifierArchiver{}, modifier));
  }
  return json;
}

Json archivedImage(const ImageRef& image, const PixelArchiver& pixels) {
  if (!image) return nullptr;
  Json json = Json::object({{"width", number(image->width())},
                            {"height", number(image->height())},
                            {"scale", number(image->scale)}});
  json["png"] = pixels(image);
  if (!image->name.empty()) json["name"] = image->name;
  return json;
}

}  // namespace brevant
