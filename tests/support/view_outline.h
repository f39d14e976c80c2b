// SPDX-License-Identifier: MIT

// Views as text, so that a test can show the tree that it expects.
#pragma once

#include <string>

#include "platform/view.h"

namespace brevant::test {

// What a host gets of the view, one line per node: its values, then its modifiers in their order.
// Children are indented below it. Of an image only the name is shown.
//
//   VStack leading 4 .padding(top 8)
//     Text "Reading" .font(style title3) .lineLimit(1)
std::string outline(const View& view);

}  // namespace brevant::test
