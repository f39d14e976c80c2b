// SPDX-License-Identifier: MIT
#include "widget/control.h"

#include <utility>

namespace brevant {

View control(SystemVersion version, const IntentValue& intent, const DeepLink& deepLink,
             View label) {
  if (version >= kInteractiveWidgets) {
    return button(intent, std::move(label)).buttonStyle(ButtonStyle::kPlain);
  }
  return link(deepLink.url(), std::move(label));
}

}  // namespace brevant
