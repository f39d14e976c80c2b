// SPDX-License-Identifier: MIT
#pragma once

#include "platform/intent.h"
#include "platform/process_info.h"
#include "platform/view.h"
#include "widget/deep_link.h"

namespace brevant {

// A pause or stop control: a plain button that runs the intent where the system's widgets are
// interactive, before that a link into the main application.
View control(SystemVersion version, const IntentValue& intent, const DeepLink& deepLink,
             View label);

}  // namespace brevant
