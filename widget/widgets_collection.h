// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "widget/running_widget.h"

namespace brevant {

// One widget of the bundle. A Live Activity widget has no configuration here: its presentations are
// asked of the widget itself.
struct BundledWidget {
  std::string kind;
  std::optional<StaticConfiguration> homeScreen{};
};

// The extension's entry: which widgets it offers on this system.
class WidgetsCollection {
 public:
  // Makes the Live Activity widget; called only on systems that have Live Activities.
  using LiveActivityWidgetFactory = std::function<BundledWidget()>;

  WidgetsCollection(const Platform& platform, LiveActivityWidgetFactory liveActivityWidget)
      : platform_(platform), liveActivityWidget_(std::move(liveActivityWidget)) {}

  // In the order of the gallery.
  [[nodiscard]] std::vector<BundledWidget> body() const;

 private:
  Platform platform_;
  LiveActivityWidgetFactory liveActivityWidget_;
};

}  // namespace brevant
