// SPDX-License-Identifier: MIT
#include "cli/json_widget.h"

#include "cli/json.h"
#include "cli/pictures.h"
#include "cli/view_json.h"
#include "platform/linux/json_check.h"

namespace brevant {
namespace {

std::string_view name(WidgetFamily family) {
  return family == WidgetFamily::kSystemSmall ? "systemSmall" : "systemMedium";
}

Json json(const BundledWidget& widget) {
  if (!widget.homeScreen) {
    return {{"kind", widget.kind},
            {"displayName", nullptr},
            {"description", nullptr},
            {"families", nullptr}};
  }
  Json families = Json::array();
  for (const WidgetFamily family : widget.homeScreen->supportedFamilies) {
    families.push_back(name(family));
  }
  return {{"kind", widget.kind},
          {"displayName", widget.homeScreen->displayName},
          {"description", widget.homeScreen->description},
          {"families", std::move(families)}};
}

// The PNG of each image, in base64.
PixelArchiver pixelsIn(Pictures& pictures) {
  return [&pictures](const ImageRef& image) { return pictures.png(image); };
}

Json json(const StaticConfiguration& widget, const WidgetContent& entry, ColorScheme colorScheme,
          const PixelArchiver& pixels) {
  Json views = Json::object();
  for (const WidgetFamily family : widget.supportedFamilies) {
    views[std::string(name(family))] =
        archivedView(widget.content(entry, {colorScheme, family}), pixels);
  }
  return {{"guid", entry.guid},
          {"date", secondsSince1970(entry.date)},
          {"name", entry.name},
          {"icon", archivedImage(entry.icon, pixels)},
          {"start", secondsSince1970(entry.start)},
          {"duration", entry.duration},
          {"views", std::move(views)}};
}

// The coded content as it was stored; null for one that is no JSON.
Json contentState(const LiveActivity& activity) {
  if (!harmInJson(activity.contentState).empty()) return nullptr;
  Json content = Json::parse(activity.contentState, nullptr, false);
  return content.is_discarded() ? Json(nullptr) : content;
}

}  // namespace

std::string widgetsJson(const std::vector<BundledWidget>& widgets) {
  Json list = Json::array();
  for (const BundledWidget& widget : widgets) list.push_back(json(widget));
  return printed(list);
}

Answer timelineJson(const StaticConfiguration& widget,
                    const std::optional<Timeline<WidgetContent>>& timeline, ColorScheme colorScheme,
                    const ImageCodec& codec) {
  Pictures pictures(codec);
  if (!timeline) return pictures.printed(nullptr);
  Json entries = Json::array();
  for (const WidgetContent& entry : timeline->entries) {
    entries.push_back(json(widget, entry, colorScheme, pixelsIn(pictures)));
  }
  return pictures.printed(
      {{"kind", widget.kind}, {"policy", "atEnd"}, {"entries", std::move(entries)}});
}

Answer entryJson(const StaticConfiguration& widget, const WidgetContent& entry,
                 ColorScheme colorScheme, const ImageCodec& codec) {
  Pictures pictures(codec);
  return pictures.printed(json(widget, entry, colorScheme, pixelsIn(pictures)));
}

std::string liveActivitiesJson(const std::vector<LiveActivity>& activities) {
  Json list = Json::array();
  for (const LiveActivity& activity : activities) {
    const bool isActive = activity.state == LiveActivityState::kActive;
    list.push_back({{"id", activity.id},
                    {"state", isActive ? "active" : "ended"},
                    {"contentState", contentState(activity)}});
  }
  return printed(list);
}

std::string liveActivityIdJson(const std::string& id) {
  return printed({{"id", id}});
}

Answer presentationJson(const std::string& kind, const LiveActivity& activity,
                        const LiveActivityPresentation& presentation, const ImageCodec& codec) {
  const DynamicIsland& island = presentation.dynamicIsland;
  Pictures pictures(codec);
  const auto view = [&](const View& tree) { return archivedView(tree, pixelsIn(pictures)); };
  return pictures.printed({{"kind", kind},
                           {"id", activity.id},
                           {"contentState", contentState(activity)},
                           {"lockScreen", view(presentation.lockScreen)},
                           {"dynamicIsland",
                            {{"expanded",
                              {{"leading", view(island.expanded.leading)},
                               {"trailing", view(island.expanded.trailing)},
                               {"bottom", view(island.expanded.bottom)}}},
                             {"compactLeading", view(island.compactLeading)},
                             {"compactTrailing", view(island.compactTrailing)},
                             {"minimal", view(island.minimal)}}}});
}

}  // namespace brevant
