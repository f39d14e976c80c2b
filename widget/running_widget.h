// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/environment.h"
#include "platform/platform.h"
#include "platform/view.h"
#include "store/store_events.h"
#include "widget/provider.h"

namespace brevant {

// What a widget host needs of a home-screen widget.
struct StaticConfiguration {
  std::string kind;
  std::unique_ptr<Provider> provider;
  std::function<View(const WidgetContent&, const Environment&)> content;
  std::string displayName;
  std::string description;
  std::vector<WidgetFamily> supportedFamilies;
};

// The home-screen widget: the running activity, in a small and a medium size.
class RunningWidget {
 public:
  explicit RunningWidget(const Platform& platform, StoreListener listener = {})
      : platform_(platform), listener_(std::move(listener)) {}

  std::string kind = "running_widget";

  // Opens a manager on the shared database each time, for the configuration's provider; the
  // listener hears what it cannot read.
  [[nodiscard]] StaticConfiguration body() const;

 private:
  Platform platform_;
  StoreListener listener_;
};

}  // namespace brevant
